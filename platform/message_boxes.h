#pragma once

#include "numeric/message_box.h"

#include <functional>

namespace merov::platform
{

/// Shows a box as a modal window over the active one and waits for the answer. Closing it without a
/// button answers No or Cancel, where it has one. Lines stand as they are, whatever characters they have.
numeric::BoxAnswer AskUser(const numeric::Box& box);

/// Tells of the exception that is being handled, in the box " ERROR REPORT": a handler of an event lets
/// none out. Call it within a catch block.
void ShowCaught();

/// The program's receiver of all boxes; install it by a ScopedBoxReceiver.
class MessageBoxes : public numeric::BoxReceiver
{
public:
    using Ask = std::function<numeric::BoxAnswer(const numeric::Box&)>;

    /// @param ask  who answers: the user, or a test
    explicit MessageBoxes(Ask ask = AskUser);

    numeric::BoxAnswer Show(const numeric::Box& box) override;

private:
    Ask ask_;
};

} // namespace merov::platform
