#include "planning/compass_check.h"

#include "numeric/inout_lib.h"
#include "support/erfa_places.h"

#include <gtest/gtest.h>

namespace merov::planning
{
namespace
{

TEST(CompassCheck, ErrorsGoTheShorterWayOnce)
{
    const struct {
        double True, Reading, Error;
    } rows[] = {{10.0, 350.0, 20.0}, {350.0, 10.0, -20.0}, {190.0, 10.0, 180.0}, {10.0, 190.0, -180.0},
                {0.0, 180.5, 179.5}, {180.5, 0.0, -179.5}, {540.5, 0.0, 180.5},  {-190.0, 360.0, -190.0}};
    for (const auto& row : rows)
        EXPECT_EQ(InstrumentError(row.True, row.Reading), row.Error) << row.True << " " << row.Reading;
}

/// "true bearing|gyro error|true heading|compass error|deviation" as they are shown.
std::string Shown(double bearing, const CompassReadings& readings)
{
    CompassCheck check;
    check.TrueBearing = bearing;
    check.Errors = CompareReadings(bearing, readings);
    const CompassTexts texts = TextsOf(check);
    return texts.TrueBearing + "|" + texts.GyroError + "|" + texts.TrueHeading + "|" + texts.CompassError + "|" +
           texts.Deviation;
}

TEST(CompassCheck, EachErrorFollowsFromTheOneBefore)
{
    EXPECT_EQ(Shown(13.0, {10.0, 359.0, 4.0, -5.0}), "013°.0|+ 3°.0|362°.0| - 2°.0|+ 3°.0");
    EXPECT_EQ(Shown(350.0, {10.0, 5.0, 350.0, 3.5}), "350°.0| - 20°.0|-015°.0| - 5°.0| - 8°.5");
    EXPECT_EQ(Shown(250.0, {}), "250°.0| - 110°.0|-110°.0| - 110°.0| - 110°.0");
    numeric::SetDecimalSeparator(",");
    EXPECT_EQ(Shown(100.0, {99.96, 0.0, 0.0, 0.0}), "100°,0|+ 0°,0|000°,0|+ 0°,0|+ 0°,0");
    numeric::SetDecimalSeparator(".");
}

TEST(CompassCheck, BearingsOfTheSunAroundTheEarth)
{
    // The Sun's place by ERFA, turned into the horizon by ERFA. Ours is within 0.25'.
    test::Spread bearings, hourAngles;
    for (int day = 0; day < 366; day += 7)
        for (const auto& [lat, lon] : {std::pair(45.5, -8.25), {-33.9, 151.2}, {3.0, -179.5}, {70.0, 300.0}}) {
            const double instant = 38000.0 + day * 1.017;
            double distance, azimuth, altitude;
            const test::Place sun = test::ErfaSun(instant - 36526.5, distance);
            const double lha = sun.GHA + lon;
            eraHd2ae(lha * ERFA_DD2R, sun.Dec * ERFA_DD2R, lat * ERFA_DD2R, &azimuth, &altitude);
            const CompassCheck check = CheckCompasses("SUNUPP", instant, lat, lon, {});
            hourAngles.Add(std::remainder(check.LHA - lha, 360.0));
            bearings.Add(std::remainder(check.TrueBearing - azimuth * ERFA_DR2D, 360.0) * std::cos(altitude));
            EXPECT_NEAR(check.Declination, sun.Dec, 0.1 / 60.0);
        }
    EXPECT_TRUE(hourAngles.Within("hour angle of the Sun", {0.1 / 60.0, 0.25 / 60.0}));
    EXPECT_TRUE(bearings.Within("bearing of the Sun, on the horizon's circle", {0.1 / 60.0, 0.25 / 60.0}));
}

} // namespace
} // namespace merov::planning
