#include "cli/command_line.h"

/// The check of the compasses. The place of Vega and its bearing are those of ERFA, from the place and the motion
/// of the Hipparcos catalogue.

namespace merov::test
{
namespace
{

const std::string Vega = "azimuth VEGA 2004-05-21~22:00:00 45.5 -8.25";

TEST(CliAzimuth, ComparesReadingsWithTheBearing)
{
    const std::string place = R"("GHA":290.60002, "LHA":282.35002, "Declination":38.78302, "TrueBearing":67.1991)";
    const QJsonObject all =
        ExpectJson(Vega + " --gyro-bearing 65 --gyro-heading 359 --compass-heading 4.5 --variation -5", 0,
                   "{" + place + R"(, "GyroError":2.1991, "TrueHeading":361.1991, "CompassError":-3.3009,
                   "Deviation":1.6991})",
                   1e-3);
    EXPECT_EQ(Keys(all), "Boxes CompassError Declination Deviation GHA GyroError LHA TrueBearing TrueHeading");
    ExpectJson(Vega, 0, "{" + place + R"(, "GyroError":67.1991, "Deviation":67.1991})", 1e-3);
    EXPECT_EQ(RunCli(Vega + " --gyro-bearing 70.5").Out, "GHA                 290°36'.0\n"
                                                         "LHA                 282°21'.0\n"
                                                         "d                   38°47'.0 N\n"
                                                         "True bearing        067°.2\n"
                                                         "Gyro error           - 3°.3\n"
                                                         "True heading        -003°.3\n"
                                                         "Compass error        - 3°.3\n"
                                                         "Magnetic deviation   - 3°.3\n");
}

TEST(CliAzimuth, RefusesWhatItCannotTake)
{
    ExpectText("azimuth POLARIX 2004-05-21~22:00:00 45 0", 1, "", "\"POLARIX\" is no body code.");
    ExpectText(Vega + " --gyro-bearing 360.1", 2, "", "--gyro-bearing: \"360.1\" is not a direction in degrees");
    ExpectText(Vega + " --compass-heading -1", 2, "", "--compass-heading");
    ExpectText(Vega + " --variation 361", 2, "", "--variation: \"361\" is not a variation");
    ExpectText("azimuth VEGA 2004-05-21~22:00:00 45", 2, "", "LONG");
}

} // namespace
} // namespace merov::test
