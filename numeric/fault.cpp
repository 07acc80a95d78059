#include "numeric/fault.h"

namespace merov::numeric
{

void RaiseIllegalCall()
{
    throw Fault(FaultIllegalCall, "Illegal procedure call.");
}

void RaiseOverflow()
{
    throw Fault(FaultOverflow, "Overflow.");
}

void RaiseDivisionByZero()
{
    throw Fault(FaultDivisionByZero, "Division by zero.");
}

} // namespace merov::numeric
