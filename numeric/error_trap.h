#pragma once

#include "numeric/fault.h"

#include <string>
#include <utility>

namespace merov::numeric
{

/// The last message that an error trap composed. The traps of all calculations of a program share
/// one journal, so that a fault which repeats at once is told once. Its owner hands it to each run.
struct LastError {
    std::string Text;  ///< the message, its lines joined by line feeds; empty at start
    double Time = 0.0; ///< local date-time of the message; 0 at start
};

/// Carries a calculation on when one of its steps fails.
///
/// A navigator gets a usable result and one box instead of a dead program: a fault ends the step in
/// which it rises, is reported, and the next step runs. A step is one statement of the calculation;
/// a routine called in it is abandoned as a whole. Only a Fault is caught.
class ErrorTrap
{
public:
    /// @param firstLine  first line of the box, naming the calculation
    /// @param journal    the program's last message; must outlive the trap
    ErrorTrap(std::string firstLine, LastError& journal) : firstLine_(std::move(firstLine)), journal_(journal) {}

    /// Runs `step`; reports a fault that rises in it. True when the step ran to its end.
    template <class Routine>
    bool Step(Routine&& step)
    {
        try {
            std::forward<Routine>(step)();
            return true;
        } catch (const Fault& fault) {
            Report(fault);
            return false;
        }
    }

    /// Sets `target` to what `formula` gives; on a fault, or a value that is no finite number,
    /// `target` stays as it was.
    template <class Formula>
    void Assign(double& target, Formula&& formula)
    {
        Step([&] { target = Finite(std::forward<Formula>(formula)()); });
    }

    /// Tells of `fault`: the box " ERROR REPORT" with the first line, two lines that ask to report
    /// the error, and the fault's own line. The box is not shown when the journal holds the same
    /// text from at most one whole second ago. The text and the time go into the journal always.
    void Report(const Fault& fault);

private:
    std::string firstLine_;
    LastError& journal_;
};

/// The line of a box that tells of `fault`: "Illegal procedure call." for 5, "Overflow." for 6,
/// "Division by zero." for 11, otherwise "Error ", the number, ": " and the description.
std::string FaultLine(const Fault& fault);

} // namespace merov::numeric
