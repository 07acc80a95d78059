#include "tools/sight_making.h"

#include "ephemeris/astro_lib.h"
#include "fix/nautical_lib.h"
#include "sailing/ellipsoid.h"

#include <algorithm>
#include <cmath>

namespace merov::samples
{

void TakeAltitudes(fix::SightSession& s, double course, double speed)
{
    for (int i = 1; i <= s.ObsCount; ++i) {
        ephemeris::BodyPosition body;
        ephemeris::ComputeBodyPosition(s.ObsBody[i], s.ObsTime[i], body);
        s.ObsGHA[i] = body.GHA;
        s.ObsDec[i] = body.Declination;
        s.ObsDist[i] = body.Distance;
        s.ObsAltitude[i] = 45.0; // where the trials start
    }
    numeric::Vector approxLat(1, s.ObsCount);
    const sailing::EarthModel earth = sailing::EllipsoidAt(sailing::DefaultEllipsoidIndex);
    fix::RunPositions(s.ObsCount, course, speed, s.ObsTime, s.ObsLat, s.ObsLong, approxLat, earth.InverseFlattening,
                      earth.SemiMajorAxisNm);
    constexpr int MostTrials = 50;
    constexpr double CloseEnough = 1e-9; // degrees
    double worst = 1.0;
    for (int trial = 0; trial < MostTrials && worst > CloseEnough; ++trial) {
        fix::CorrectAltitudes(s.ObsCount, s.HeightOfEye, s.AirTemp, s.WaterTemp, s.Pressure, s.ObsLat, s.ObsLong,
                              s.ObsBody, s.ObsAltitude, s.ObsInstCorr, s.ObsDist, s.ObsDec, s.ObsGHA, s.ObsHo, s.ObsHc,
                              s.ObsIntercept);
        worst = 0.0;
        for (int i = 1; i <= s.ObsCount; ++i) {
            s.ObsAltitude[i] -= s.ObsIntercept[i];
            worst = std::max(worst, std::fabs(s.ObsIntercept[i]));
        }
    }
}

} // namespace merov::samples
