#pragma once

#include <cmath>
#include <stdexcept>
#include <string>

namespace merov::numeric
{

/// Numbers of the run-time faults of arithmetic.
constexpr int FaultIllegalCall = 5;     ///< argument outside a function's domain, NaN
constexpr int FaultOverflow = 6;        ///< result too large for a double
constexpr int FaultDivisionByZero = 11; ///< any division by zero, 0/0 included

/// A run-time fault of arithmetic, raised where the formula stands and caught by the error trap of a
/// calculation. Nothing else is thrown across the core.
class Fault : public std::runtime_error
{
public:
    Fault(int number, const std::string& description) : std::runtime_error(description), number_(number) {}
    int Number() const { return number_; }

private:
    int number_;
};

// The throwing paths stand out of line, so that the checks cost a comparison where nothing is wrong.
[[noreturn]] void RaiseIllegalCall();
[[noreturn]] void RaiseOverflow();
[[noreturn]] void RaiseDivisionByZero();

/// The value itself. Raises fault 6 for an infinity and fault 5 for a NaN.
inline double Finite(double value)
{
    if (!std::isfinite(value)) {
        if (std::isnan(value)) RaiseIllegalCall();
        RaiseOverflow();
    }
    return value;
}

/// a / b. Raises fault 11 for b = 0, also for 0/0, and fault 6 when the quotient is too large.
inline double Quotient(double a, double b)
{
    if (b == 0.0) RaiseDivisionByZero();
    return Finite(a / b);
}

/// The square root of x. Raises fault 5 for a negative x or a NaN.
inline double SquareRoot(double x)
{
    if (!(x >= 0.0)) RaiseIllegalCall();
    return Finite(std::sqrt(x));
}

/// The natural logarithm of x. Raises fault 5 for x not above 0 or a NaN.
inline double NaturalLog(double x)
{
    if (!(x > 0.0)) RaiseIllegalCall();
    return Finite(std::log(x));
}

} // namespace merov::numeric
