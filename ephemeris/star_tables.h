#pragma once

#include <array>
#include <string_view>

namespace merov::ephemeris
{

/// A star as the catalogue has it, equator and equinox of J2000.0.
struct StarRow {
    std::string_view Name;
    double RA;        ///< right ascension, packed H.MMSSs
    double Dec;       ///< declination, packed D.MMSS, south negative
    double MotionRA;  ///< proper motion in right ascension, seconds of arc per year
    double MotionDec; ///< proper motion in declination, seconds of arc per year
    double Magnitude; ///< visual magnitude
};

/// The navigational stars in the order of their names. Places are rounded to 0.1 second of time and to
/// 1 second of arc.
extern const std::array<StarRow, 58> StarRows;

} // namespace merov::ephemeris
