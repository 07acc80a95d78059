#include "numeric/error_trap.h"

#include "numeric/clock.h"
#include "numeric/message_box.h"

namespace merov::numeric
{

std::string FaultLine(const Fault& fault)
{
    switch (fault.Number()) {
    case FaultIllegalCall:
        return "Illegal procedure call.";
    case FaultOverflow:
        return "Overflow.";
    case FaultDivisionByZero:
        return "Division by zero.";
    default:
        return "Error " + std::to_string(fault.Number()) + ": " + fault.what();
    }
}

void ErrorTrap::Report(const Fault& fault)
{
    const std::vector<std::string> lines{firstLine_, "The program will try to resume execution",
                                         "but please report the following error:", FaultLine(fault)};
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "\n") + line;

    const double now = CurrentClock().Now().Local;
    const bool justShown =
        journal_.Time != 0.0 && !journal_.Text.empty() && journal_.Text == text && WithinOneSecond(journal_.Time, now);
    if (!justShown) ShowError(" ERROR REPORT", lines);
    journal_ = {text, CurrentClock().Now().Local};
}

} // namespace merov::numeric
