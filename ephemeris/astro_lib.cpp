#include "ephemeris/astro_lib.h"

#include "ephemeris/moon.h"
#include "ephemeris/planets.h"
#include "ephemeris/saturn_lib.h"
#include "ephemeris/stars.h"
#include "ephemeris/sun.h"
#include "ephemeris/time_lib.h"

#include <algorithm>

namespace merov::ephemeris
{

namespace
{

/// The distance of every star: so far that parallax and semi-diameter vanish.
constexpr double StarDistance = 272000.0;

} // namespace

const std::vector<std::string_view>& BodyCodes()
{
    static const std::vector<std::string_view> codes{
        "ACAMAR",  "ACHERNAR",    "ACRUX",      "ADHARA",     "ALDEBARAN", "ALIOTH",     "ALKAID",  "ALNA'IR",
        "ALNILAM", "ALPHARD",     "ALPHECCA",   "ALPHERATZ",  "ALTAIR",    "ANKAA",      "ANTARES", "ARCTURUS",
        "ATRIA",   "AVIOR",       "BELLATRIX",  "BETELGEUSE", "CANOPUS",   "CAPELLA",    "DENEB",   "DENEBOLA",
        "DIPHDA",  "DUBHE",       "ELNATH",     "ELTANIN",    "ENIF",      "FOMALHAUT",  "GACRUX",  "GIENAH",
        "HADAR",   "HAMAL",       "JUPITER",    "KAUS AUST",  "KOCHAB",    "MARKAB",     "MARS",    "MENKAR",
        "MENKENT", "MIAPLACIDUS", "MIRFAK",     "MOONLOW",    "MOONUPP",   "NUNKI",      "PEACOCK", "POLARIS",
        "POLLUX",  "PROCYON",     "RASALHAGUE", "REGULUS",    "RIGEL",     "RIGIL KENT", "SABIK",   "SATURN",
        "SCHEDAR", "SHAULA",      "SIRIUS",     "SPICA",      "SUHAIL",    "SUNLOW",     "SUNUPP",  "VEGA",
        "VENUS",   "ZUBEN'UBI"};
    return codes;
}

bool IsBodyCode(std::string_view code)
{
    return std::ranges::binary_search(BodyCodes(), code);
}

bool IsPlanet(std::string_view bodyCode)
{
    return bodyCode == "MARS" || bodyCode == "JUPITER" || bodyCode == "SATURN" || bodyCode == "VENUS";
}

void ComputeBodyPosition(std::string_view bodyCode, double instant, BodyPosition& position)
{
    const double T = CenturiesFromJ2000(instant);
    if (IsPlanet(bodyCode)) {
        ComputePlanetPosition(bodyCode, T, position.GHA, position.Declination, position.Distance,
                              position.HelioDistance, position.EclLatitude, position.EclLongitude);
    } else if (bodyCode == "SUNLOW" || bodyCode == "SUNUPP") {
        ComputeSunPosition(T, position.GHA, position.Declination, position.Distance);
    } else if (bodyCode == "MOONLOW" || bodyCode == "MOONUPP") {
        ComputeMoonPosition(T, position.GHA, position.Declination, position.Distance);
    } else {
        ComputeStarPosition(bodyCode, T, position.GHA, position.Declination);
        position.Distance = StarDistance;
    }
}

void SetDataFolder(const std::filesystem::path& folder)
{
    SetSaturnFile(folder / "Planet.dat");
}

} // namespace merov::ephemeris
