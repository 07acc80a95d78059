#pragma once

#include <array>
#include <filesystem>
#include <string_view>
#include <vector>

/// The door to the ephemeris: the apparent place of a body by its code.

namespace merov::ephemeris
{

/// The 66 body codes in alphabetical order: 58 stars, four planets, two limbs each of Sun and Moon.
const std::vector<std::string_view>& BodyCodes();

/// True for one of the 66 codes, spelled exactly.
bool IsBodyCode(std::string_view code);

/// Apparent place of a body, referred to the true equator and equinox of date.
struct BodyPosition {
    double GHA = 0.0;           ///< Greenwich hour angle, degrees, 0 up to 360
    double Declination = 0.0;   ///< degrees, north positive
    double Distance = 0.0;      ///< astronomical units; Moon: km / 149565800; star: 272000
    double HelioDistance = 0.0; ///< planets only: heliocentric radius vector, astronomical units
    double EclLatitude = 0.0;   ///< planets only: geocentric ecliptic latitude, degrees
    double EclLongitude = 0.0;  ///< planets only: geocentric ecliptic longitude, degrees, 0..360
};

/// True for "VENUS", "MARS", "JUPITER", "SATURN".
bool IsPlanet(std::string_view bodyCode);

/// The apparent place of `bodyCode` at `instant` (GMT, taken in whole seconds).
/// Sets the three last fields of `position` for planets alone and leaves them untouched otherwise. A
/// code that is none of the 66 gives the place of right ascension 0, declination 0 of J2000.0: callers
/// check codes first. A missing series file of Saturn shows its box and gives the Sun's direction.
/// Allocates nothing once the series of Saturn are read.
void ComputeBodyPosition(std::string_view bodyCode, double instant, BodyPosition& position);

/// The folder in which the series file of Saturn, Planet.dat, lies: the program's own. Set at start-up.
void SetDataFolder(const std::filesystem::path& folder);

} // namespace merov::ephemeris
