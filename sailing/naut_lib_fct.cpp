#include "sailing/naut_lib_fct.h"

namespace merov::sailing
{

double NautLibFct::f(double x, int n)
{
    switch (n) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 14:
        return RhumbLineFunction(x, n, Sailing);
    case 12:
    case 13:
        return Sun.f(x, n);
    default:
        return 0.0;
    }
}

double NautLibFct::SysEq(const numeric::Vector& /*x*/, int /*n*/)
{
    return 0.0;
}

} // namespace merov::sailing
