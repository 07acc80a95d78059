#pragma once

#include "platform/application.h"
#include "support/box_recorder.h"

namespace merov::test
{

/// Receives the boxes of a driven test and tells the application of them, as a box on the screen does: a
/// mouse press during which one came is swallowed.
class ScreenBoxes : public BoxRecorder
{
public:
    numeric::BoxAnswer Show(const numeric::Box& box) override
    {
        if (platform::Application* application = platform::Application::Running()) application->NoteBox();
        return BoxRecorder::Show(box);
    }
};

} // namespace merov::test
