#pragma once

#include "numeric/arrays.h"

#include <cmath>
#include <string_view>
#include <vector>

/// Angles, guarded inverse functions, packed forms, small statistics and units.
///
/// Angles are degrees unless a routine says radians. All routines are pure functions of their
/// arguments, but for the boxes of ArcSin and ArcCos, and none of them allocates on its normal path.

namespace merov::numeric
{

// These shortened values are used everywhere, also where a better one exists: they are part of the
// numbers that reports print and that a navigator compares.
constexpr double DegToRad = 0.01745329251993889;      ///< degrees to radians, by multiplication
constexpr double RadToDeg = 57.29577951309679;        ///< radians to degrees, by multiplication
constexpr double Pi = 3.141592653589;                 ///< the program's pi, twelve decimals
constexpr double HalfPi = 1.5707963267945;            ///< the program's pi/2
constexpr double QuarterPi = 0.78539816339725;        ///< the program's pi/4
constexpr double Tolerance = 1e-11;                   ///< a remainder closer to 0 or to its divisor counts as 0
constexpr double HalfPiGuard = HalfPi;                ///< what ArcSin and ArcCos give at their limits
constexpr double PiGuard = Pi;                        ///< what ArcCos gives at -1
constexpr double LargestDouble = 1.7976931348623e308; ///< bound of a search without bounds

/// A place on the Earth: degrees, north and east positive.
struct GeoPosition {
    double Latitude = 0.0;  ///< -90..90
    double Longitude = 0.0; ///< -180..180 unless a routine says 0..360
};

/// -1, 0 or 1 by the sign of x.
inline int Sign(double x)
{
    return (x > 0.0) - (x < 0.0);
}

/// Common logarithm: ln x / ln 10. Fault 5 for x not above 0.
double Log10(double x);

/// Sum of c[k] x^k for k = 0..degree; a negative degree gives 0. `c` holds at least degree + 1 values.
double Polynomial(double x, int degree, const double* c);

/// Remainder of x / m with the sign of x. With q = x/m cut towards zero, the remainder is (x/m - q) m;
/// one within Tolerance of m counts as 0. `quotient`, where given, takes q. m must not be 0 (fault 11).
double RealMod(double x, double m, double* quotient = nullptr);

/// RealMod(x, 1.0): the fraction of x with its sign.
double FracPart(double x);

/// x reduced to -180..180; both ends stay as they are.
double NormalizeLongitude(double x);

/// x reduced to 0..360, upper end excluded. What lies within Tolerance of a whole turn gives 0.
double Norm360(double x);

/// True when x / 2 is a whole number.
bool IsEven(double x);

/// Compass bearing to mathematical angle and back: Norm360(450 - Norm360(x)).
double CompassToMath(double x);

/// Exchanges two values.
void SwapValues(double& a, double& b);

/// Arc sine in radians, by the arc tangent. |x| above 1 shows the box " Error in Arc Sinus routine"
/// and gives the limit with the sign of x; |x| equal to 1 gives the limit, HalfPiGuard, silently.
double ArcSin(double x);

/// Arc cosine in radians, 0..PiGuard. |x| above 1 shows the box " Error in Arc Cosinus routine" and
/// gives 0 or PiGuard by the sign of x.
double ArcCos(double x);

/// Direction in degrees, 0..360, of the vector with the component x along the zero direction and y
/// at right angles to it: arctan(y/x), plus 180 for negative x. Both 0 give 0; x = 0 alone is a
/// division by zero, fault 11.
double Atan2Deg(double x, double y);

/// On which side of bearing a bearing b lies, both any degrees: -1 when b is less than 180 clockwise
/// of a, 1 when it is less than or exactly 180 counter-clockwise, 0 when they are equal.
int AngleSide(double a, double b);

/// r and theta (degrees, 0..360) of a plane vector; both 0 for the zero vector. Fault 11 as Atan2Deg.
void RectToPolar2(double x, double y, double& r, double& theta);

/// Length of a plane vector.
double Hypot2(double x, double y);

/// Length, latitude (-90..90) and longitude (0..360), degrees, of a vector in space; all 0 for the
/// zero vector. Fault 11 as Atan2Deg.
void RectToPolar3(double x, double y, double z, double& r, double& lat, double& lon);

/// Components of a vector of length r at latitude lat and longitude lon, degrees.
void PolarToRect(double r, double lat, double lon, double& x, double& y, double& z);

/// Right ascension (0..360) and declination of a point of the ecliptic at longitude `lambda`, with
/// obliquity `eps`; all degrees. Fault 11 where cos(lambda) is exactly 0.
void EclipticToEquator(double lambda, double eps, double& ra, double& dec);

/// Decimal degrees to the packed form D.MMm (45.505 degrees give 45.303: 45 degrees 30.3 minutes).
/// What lies within 8e-5 of a whole degree becomes that whole degree. The sign of x stays.
double DegToDM(double x);

/// Packed D.MMm to decimal degrees: integer part + fraction * 100 / 60.
double DMToDeg(double x);

/// Packed D.MMSSs to decimal degrees, the sign going with all parts.
double DMSToDeg(double x);

/// Sum over the number of elements; fault 11 for an empty array.
double MeanOf(const Vector& a);

/// Mean of the absolute differences from MeanOf(a).
double MeanAbsDeviation(const Vector& a);

/// Largest and smallest of a[first..last]; -1 stands for the array's own bound. The first of equal
/// elements wins. The range must not be empty.
double MaxOf(const Vector& a, int first, int last);
double MinOf(const Vector& a, int first, int last);

/// Index of `text`, blanks trimmed at both ends, in the sorted `list`; -1 if it isn't there.
int FindSorted(std::string_view text, const std::vector<std::string_view>& list);

constexpr double FeetPerMetre = 3.28084; ///< as the program's displays count; back by 0.3048

/// Units: temperature, and pressure by the factors 0.02953 and 33.8638 (no exact inverses).
double CelsiusToFahrenheit(double t);
double FahrenheitToCelsius(double t);
double MillibarToInHg(double p);
double InHgToMillibar(double p);

} // namespace merov::numeric
