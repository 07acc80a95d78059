#pragma once

#include <string>

/// The earth models: a fixed list of reference ellipsoids and the one that is in force.
///
/// A row index outside 0..19 is a programming error (assertion).

namespace merov::sailing
{

/// What the sailing routines need of an ellipsoid, always handed on in this order.
struct EarthModel {
    double InverseFlattening = 0.0; ///< r = 1/f; 1e100 on the Normal Sphere
    double SemiMajorAxisNm = 0.0;   ///< a, nautical miles; on the Normal Sphere geographical miles
};

constexpr int EllipsoidCount = 20;
constexpr int NormalSphereIndex = 15;
constexpr int DefaultEllipsoidIndex = 19; ///< WGS 1984
constexpr double SphereInverseFlattening = 1e100;

/// The list text of row `index` (0..19), with the decimal separator in force: a name, " - 1/" and the
/// inverse flattening; "Normal Sphere - 0".
std::string EllipsoidText(int index);

/// The name in a list text: what stands before the first "-", its trailing blank included.
std::string EllipsoidName(int index);

/// The stored code of row `index`: (semi-major axis in metres - 6300000) * 10000.
int EllipsoidCode(int index);

/// The earth model of row `index` (0..19), read back from its list text and its code.
EarthModel EllipsoidAt(int index);

/// The model in force for all calculations, and its row. WGS 1984 until another is selected.
const EarthModel& ActiveEllipsoid();
int ActiveEllipsoidIndex();

/// Puts row `index` (0..19) in force.
void SelectEllipsoid(int index);

/// True on the Normal Sphere: r above 1000, which no real ellipsoid comes near.
inline bool IsSphere(double r)
{
    return r > 1000.0;
}

/// First eccentricity: sqrt(2/r - (1/r)/r), 0 below 1e-11. @param r  inverse flattening, not 0
double Eccentricity(double r);

/// Meridional parts in minutes of arc at a latitude in degrees, -90 excluded, on the fixed model of the
/// traditional tables (Clarke 1880) whatever ellipsoid is in force; the series that Bowditch, The American
/// Practical Navigator, gives for its table. Fault 5 at -90 degrees and beyond the poles.
double MeridionalParts(double latitudeDeg);

} // namespace merov::sailing
