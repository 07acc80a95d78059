#include "fix/sight_views.h"

#include "fix/nautical_lib.h"
#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "sailing/rhumb_line.h"

namespace merov::fix
{

namespace
{

/// Puts the position of index 0 back at the end of a scope, also when a fault ends it.
class KeptBase
{
public:
    explicit KeptBase(SightSession& session) : session_(session), kept_{session.ObsLat[0], session.ObsLong[0]} {}
    ~KeptBase()
    {
        session_.ObsLat[0] = kept_.Latitude;
        session_.ObsLong[0] = kept_.Longitude;
    }
    KeptBase(const KeptBase&) = delete;
    KeptBase& operator=(const KeptBase&) = delete;

private:
    SightSession& session_;
    numeric::GeoPosition kept_;
};

void RunToSights(SightSession& s, double r, double a)
{
    numeric::Vector approxLat(1, s.ObsCount);
    RunPositions(s.ObsCount, s.Course, s.Speed, s.ObsTime, s.ObsLat, s.ObsLong, approxLat, r, a);
}

/// Altitudes, intercepts and azimuths from the positions that the session now holds.
void WorkSights(SightSession& s)
{
    CorrectAltitudes(s.ObsCount, s.HeightOfEye, s.AirTemp, s.WaterTemp, s.Pressure, s.ObsLat, s.ObsLong, s.ObsBody,
                     s.ObsAltitude, s.ObsInstCorr, s.ObsDist, s.ObsDec, s.ObsGHA, s.ObsHo, s.ObsHc, s.ObsIntercept);
    for (int i = 1; i <= s.ObsCount; ++i)
        s.ObsAzimuth[i] = ComputeAzimuth(s.ObsLat[i], s.ObsLong[i], s.ObsGHA[i], s.ObsDec[i]);
}

} // namespace

void BuildReportView(SightSession& session, double r, double a)
{
    sailing::RhumbLineDirect(session.EstLat, session.EstLong, session.Course,
                             (session.TimeTruePos - session.TimeEstPos) * (session.Speed * 24.0), session.ObsLat[0],
                             session.ObsLong[0], r, a);
    if (session.OneEstPos) {
        for (int i = 1; i <= session.ObsCount; ++i) {
            session.ObsLat[i] = session.ObsLat[0];
            session.ObsLong[i] = session.ObsLong[0];
        }
    } else {
        session.ObsTime[0] = session.TimeTruePos;
        RunToSights(session, r, a);
    }
    WorkSights(session);
}

void BuildChartView(SightSession& session, double r, double a)
{
    {
        const KeptBase base(session);
        session.ObsLat[0] = session.TrueLat;
        session.ObsLong[0] = session.TrueLong;
        RunToSights(session, r, a);
    }
    WorkSights(session);
}

numeric::Vector ObsDistRun(const SightSession& session)
{
    numeric::Vector miles(1, session.ObsCount);
    for (int i = 1; i <= session.ObsCount; ++i)
        miles[i] = numeric::Finite((session.TimeTruePos - session.ObsTime[i]) * 24.0 * session.Speed);
    return miles;
}

} // namespace merov::fix
