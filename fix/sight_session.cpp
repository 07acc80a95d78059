#include "fix/sight_session.h"

namespace merov::fix
{

void AllocateObservations(SightSession& session, int n)
{
    session.ObsCount = static_cast<short>(n);
    session.ObsBody.Resize(1, n);
    for (numeric::Vector* fromZero : {&session.ObsTime, &session.ObsLat, &session.ObsLong})
        fromZero->Resize(0, n);
    for (numeric::Vector* fromOne :
         {&session.ObsAltitude, &session.ObsInstCorr, &session.ObsGHA, &session.ObsDec, &session.ObsDist,
          &session.ObsHo, &session.ObsHc, &session.ObsIntercept, &session.ObsAzimuth, &session.ObsWeight})
        fromOne->Resize(1, n);
}

} // namespace merov::fix
