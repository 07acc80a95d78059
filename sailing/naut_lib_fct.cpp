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
    case 5:
    case 6:
    case 9:
    case 10:
    case 11:
        return GeodesicFunction(x, n, Geodesic);
    case 7:
    case 8:
        return RateIntegrands(Geodesic.Inclination, Geodesic.OneMinusE2).f(x, n);
    case 12:
    case 13:
        return Sun.f(x, n);
    default:
        return 0.0;
    }
}

double NautLibFct::SysEq(const numeric::Vector& x, int n)
{
    return GeodesicEquation(x[1], x[2], n, Geodesic);
}

} // namespace merov::sailing
