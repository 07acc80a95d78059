#include "numeric/math_lib.h"

#include "numeric/fault.h"
#include "numeric/message_box.h"

#include <algorithm>
#include <utility>

namespace merov::numeric
{

double Log10(double x)
{
    return NaturalLog(x) / std::log(10.0);
}

double Polynomial(double x, int degree, const double* c)
{
    double sum = 0.0;
    for (int k = degree; k >= 0; --k)
        sum = sum * x + c[k];
    return sum;
}

double RealMod(double x, double m, double* quotient)
{
    if (m == 0.0) RaiseDivisionByZero();
    const double turns = x / m;
    const double whole = std::trunc(turns);
    if (quotient != nullptr) *quotient = whole;
    const double remainder = (turns - whole) * m;
    return std::fabs(remainder - m) < Tolerance ? 0.0 : remainder;
}

double FracPart(double x)
{
    return RealMod(x, 1.0);
}

double NormalizeLongitude(double x)
{
    const double r = RealMod(x, 360.0);
    return std::fabs(r) > 180.0 ? r - 360.0 * Sign(r) : r;
}

double Norm360(double x)
{
    const double r = RealMod(x, 360.0);
    if (std::fabs(r) < Tolerance) return 0.0;
    return r < 0.0 ? r + 360.0 : r;
}

bool IsEven(double x)
{
    return x / 2.0 == std::trunc(x / 2.0);
}

double CompassToMath(double x)
{
    return Norm360(450.0 - Norm360(x));
}

void SwapValues(double& a, double& b)
{
    std::swap(a, b);
}

double ArcSin(double x)
{
    const double size = std::fabs(x);
    if (size > 1.0) {
        ShowError(" Error in Arc Sinus routine", {"| Argument Sinus |  >  1.", "Return ± Pi / 2."});
        return Sign(x) * HalfPiGuard;
    }
    if (size == 1.0) return Sign(x) * HalfPiGuard;
    return std::atan(x / std::sqrt(1.0 - x * x));
}

double ArcCos(double x)
{
    if (std::fabs(x) > 1.0) {
        ShowError(" Error in Arc Cosinus routine", {"| Argument Cosinus |  >  1.", "Return 0 or Pi."});
        return x > 0.0 ? 0.0 : PiGuard;
    }
    if (x == 0.0) return HalfPiGuard;
    if (x == -1.0) return PiGuard;
    const double y = std::atan(std::sqrt(1.0 - x * x) / x);
    return y < 0.0 ? y + PiGuard : y;
}

double Atan2Deg(double x, double y)
{
    if (x == 0.0 && y == 0.0) return 0.0;
    return Norm360(std::atan(Quotient(y, x)) * RadToDeg + (x < 0.0 ? 180.0 : 0.0));
}

int AngleSide(double a, double b)
{
    const double first = Norm360(a);
    double second = Norm360(b);
    if (first == second) return 0;
    if (first - second > 180.0 && first > 180.0) second += 360.0;
    return first + 180.0 <= second || second <= first ? 1 : -1;
}

void RectToPolar2(double x, double y, double& r, double& theta)
{
    r = Hypot2(x, y);
    theta = Atan2Deg(x, y);
}

double Hypot2(double x, double y)
{
    return std::sqrt(x * x + y * y);
}

void RectToPolar3(double x, double y, double z, double& r, double& lat, double& lon)
{
    if (x == 0.0 && y == 0.0 && z == 0.0) {
        r = lat = lon = 0.0;
        return;
    }
    r = std::sqrt(x * x + y * y + z * z);
    lat = ArcSin(z / r) * RadToDeg;
    lon = Atan2Deg(x, y);
}

void PolarToRect(double r, double lat, double lon, double& x, double& y, double& z)
{
    const double phi = lat * DegToRad;
    const double lambda = lon * DegToRad;
    x = r * std::cos(phi) * std::cos(lambda);
    y = r * std::cos(phi) * std::sin(lambda);
    z = r * std::sin(phi);
}

void EclipticToEquator(double lambda, double eps, double& ra, double& dec)
{
    const double longitude = lambda * DegToRad;
    const double obliquity = eps * DegToRad;
    ra = Atan2Deg(std::cos(longitude), std::sin(longitude) * std::cos(obliquity));
    dec = ArcSin(std::sin(longitude) * std::sin(obliquity)) * RadToDeg;
}

double DegToDM(double x)
{
    const double whole = std::trunc(x);
    const double fraction = x - whole;
    if (std::fabs(std::fabs(fraction) - 1.0) < 8e-05) return std::trunc(x + 0.5 * Sign(x));
    return whole + fraction * 60.0 / 100.0;
}

double DMToDeg(double x)
{
    const double whole = std::trunc(x);
    return whole + (x - whole) * 100.0 / 60.0;
}

double DMSToDeg(double x)
{
    const double whole = std::trunc(x);
    const double minutes = (x - whole) * 100.0;
    const double wholeMinutes = std::trunc(minutes);
    return whole + wholeMinutes / 60.0 + (minutes - wholeMinutes) / 36.0;
}

double MeanOf(const Vector& a)
{
    double sum = 0.0;
    for (const double value : a)
        sum += value;
    return Quotient(sum, a.Size());
}

double MeanAbsDeviation(const Vector& a)
{
    const double mean = MeanOf(a);
    double sum = 0.0;
    for (const double value : a)
        sum += std::fabs(value - mean);
    return Quotient(sum, a.Size());
}

double MaxOf(const Vector& a, int first, int last)
{
    const int from = first == -1 ? a.Lower() : first;
    const int to = last == -1 ? a.Upper() : last;
    double largest = a[from];
    for (int i = from + 1; i <= to; ++i)
        if (a[i] > largest) largest = a[i];
    return largest;
}

double MinOf(const Vector& a, int first, int last)
{
    const int from = first == -1 ? a.Lower() : first;
    const int to = last == -1 ? a.Upper() : last;
    double smallest = a[from];
    for (int i = from + 1; i <= to; ++i)
        if (a[i] < smallest) smallest = a[i];
    return smallest;
}

int FindSorted(std::string_view text, const std::vector<std::string_view>& list)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return -1;
    const std::string_view trimmed = text.substr(first, text.find_last_not_of(' ') - first + 1);
    const auto place = std::lower_bound(list.begin(), list.end(), trimmed);
    return place != list.end() && *place == trimmed ? static_cast<int>(place - list.begin()) : -1;
}

double CelsiusToFahrenheit(double t)
{
    return (9.0 / 5.0) * t + 32.0;
}

double FahrenheitToCelsius(double t)
{
    return (t - 32.0) * 5.0 / 9.0;
}

double MillibarToInHg(double p)
{
    return p * 0.02953;
}

double InHgToMillibar(double p)
{
    return p * 33.8638;
}

} // namespace merov::numeric
