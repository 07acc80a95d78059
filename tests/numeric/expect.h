#pragma once

#include "numeric/fault.h"
#include "support/box_recorder.h"

#include <string>

namespace merov::test
{

/// The number of the fault that `routine` raises; 0 if it raises none.
template <class Routine>
int FaultOf(Routine&& routine)
{
    try {
        routine();
    } catch (const numeric::Fault& fault) {
        return fault.Number();
    }
    return 0;
}

/// Takes the boxes received so far, which must be one of `icon` with an OK button and the text
/// "title|line|line".
inline void ExpectBox(BoxRecorder& boxes, numeric::BoxIcon icon, const std::string& text)
{
    const std::vector<numeric::Box> taken = boxes.TakeAll();
    ASSERT_EQ(taken.size(), 1u) << text;
    EXPECT_EQ(BoxRecorder::Summary(taken[0]), text);
    EXPECT_EQ(taken[0].Icon, icon);
    EXPECT_EQ(taken[0].Buttons, numeric::BoxButtons::Ok);
}

} // namespace merov::test
