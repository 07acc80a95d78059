#include "sailing/rhumb_line.h"

#include "numeric/clock.h"
#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "numeric/message_box.h"
#include "sailing/ellipsoid.h"

#include <cmath>

namespace merov::sailing
{
namespace
{

using numeric::DegToRad;
using numeric::Finite;
using numeric::NormalizeLongitude;
using numeric::RadToDeg;

constexpr double SamePlace = 8e-5; // degrees: 0.0048 minutes of arc, some 9 metres

double LastPoleWarning = 0.0; // local date-time; 0 before the first

// A departure and its figures of the ellipsoid; radians and miles.
struct Departure {
    double Phi;
    double Lambda;
    double MeridianRadius;
    double PrimeVerticalRadius;
};

// Near east and west the latitude is linear in the distance and the longitude follows at the mean
// latitude; tan C times a difference of isometric latitudes would lose its digits there. So would
// tan C times a difference of two latitudes: `dPhi` comes in as it is, not as a latitude.
void RunAlongParallel(RhumbMode mode, const Departure& from, double course, double distance, double dPhi, double& lat2,
                      double& long2)
{
    if (mode == RhumbMode::GivenLatitude)
        dPhi = lat2 * DegToRad - from.Phi;
    else
        lat2 = Finite((from.Phi + dPhi) * RadToDeg);
    if (mode == RhumbMode::LatitudeOnly) return;

    const double c = course * DegToRad;
    double dLong;
    if (course == 90.0 || course == 270.0) {
        dLong = std::sin(c) * distance / from.PrimeVerticalRadius / std::cos(from.Phi);
    } else {
        const double phiMean = from.Phi + dPhi / 2.0;
        dLong = dPhi * std::tan(c) * from.MeridianRadius / from.PrimeVerticalRadius / std::cos(phiMean);
    }
    long2 = NormalizeLongitude(Finite((dLong + from.Lambda) * RadToDeg));
}

// The traditional formulas: 60 miles to a degree, longitude by the table of meridional parts.
void RunOnSphere(RhumbMode mode, double lat1, double long1, double course, double distance, double& lat2, double& long2)
{
    const double c = course * DegToRad;
    if (mode != RhumbMode::GivenLatitude) lat2 = Finite(lat1 + (distance / 60.0) * std::cos(c));
    if (mode == RhumbMode::LatitudeOnly) return;
    const double dParts = (MeridionalParts(lat2) - MeridionalParts(lat1)) / 60.0;
    long2 = NormalizeLongitude(Finite(long1 + std::tan(c) * dParts));
}

void StopAtPole(double phi2, double& lat2, double& long2)
{
    const bool justShown =
        LastPoleWarning != 0.0 && numeric::WithinOneSecond(LastPoleWarning, numeric::CurrentClock().Now().Local);
    if (!justShown)
        numeric::ShowWarning("Special case in nautical routine",
                             {"Your track is crossing a pole. Due to the definition of the rhumb line (see doc),",
                              "the solution is latitude 90° and indefinite longitude."});
    lat2 = phi2 < 0.0 ? -90.0 : 90.0;
    long2 = 0.0;
    // Read anew: the second counts from when the user has put the box away.
    LastPoleWarning = numeric::CurrentClock().Now().Local;
}

} // namespace

void RhumbLineDirect(double lat1, double long1, double course, double distance, double& lat2, double& long2, double r,
                     double a)
{
    RhumbLineTrial(RhumbMode::Plain, lat1, long1, course, distance, lat2, long2, r, a);
}

void RhumbLineTrial(RhumbMode mode, double lat1, double long1, double course, double distance, double& lat2,
                    double& long2, double r, double a)
{
    if (distance == 0.0) {
        lat2 = lat1;
        long2 = long1;
        return;
    }
    lat1 = OffSouthPole(lat1);

    const double phi1 = lat1 * DegToRad;
    const double e = Eccentricity(r);
    const double e2 = e * e;
    const double sinPhi1 = std::sin(phi1);
    const double w = 1.0 - e2 * sinPhi1 * sinPhi1;
    const double rootW = std::sqrt(w);
    const Departure from{phi1, long1 * DegToRad, a * (1.0 - e2) / (w * rootW), a / rootW};
    const double c = course * DegToRad;
    const double dPhi = std::cos(c) * distance / from.MeridianRadius;
    if (InEastWestBand(course)) {
        RunAlongParallel(mode, from, course, distance, dPhi, lat2, long2);
        return;
    }
    const double phiEstimate = phi1 + dPhi;

    // The arc of the meridian to its term in e^2, scaled by the radius at the departure.
    const double phi2 = mode == RhumbMode::GivenLatitude
                            ? lat2 * DegToRad
                            : phi1 + ((1.0 - 0.75 * e2) * (phiEstimate - phi1) +
                                      0.375 * e2 * (std::sin(2.0 * phiEstimate) - std::sin(2.0 * phi1))) *
                                         (from.MeridianRadius / a) / (1.0 - e2);
    if (mode == RhumbMode::Plain && std::fabs(phi2) > numeric::HalfPi) {
        StopAtPole(phi2, lat2, long2);
        return;
    }
    if (IsSphere(r)) {
        RunOnSphere(mode, lat1, long1, course, distance, lat2, long2);
        return;
    }
    if (mode != RhumbMode::LatitudeOnly) {
        const double dPsi = IsometricLatitude(phi2, e) - IsometricLatitude(phi1, e);
        long2 = NormalizeLongitude(Finite((from.Lambda + std::tan(c) * dPsi) * RadToDeg));
    }
    lat2 = Finite(phi2 * RadToDeg);
}

//  n   x          trial                                                  result
//  0   course     longitude at the arrival latitude TrialLat             TrialLong - ArrLong
//  1   distance   latitude on the course                                 TrialLat - ArrLat
//  2   latitude   longitude at that latitude on the course               TrialLong - ArrLong
//  3   distance   latitude and longitude on the course                   TrialLat - ArrLat
//  4   distance   latitude and longitude on the course                   TrialLong - ArrLong
//  14  latitude   meridional parts of the tables                         parts - TargetParts
// Differences of longitude are reduced, or an arrival on 180 degrees would never be found.
double RhumbLineFunction(double x, int n, SailingProblem& problem)
{
    SailingProblem& p = problem;
    const auto trial = [&p](RhumbMode mode, double course, double distance, double& lat2) {
        RhumbLineTrial(mode, p.DepLat, p.DepLong, course, distance, lat2, p.TrialLong, p.InverseFlattening,
                       p.SemiMajorAxis);
    };
    double lat2 = p.TrialLat;
    switch (n) {
    case 0:
        trial(RhumbMode::GivenLatitude, x, p.Distance, lat2);
        return NormalizeLongitude(p.TrialLong - p.ArrLong);
    case 1:
        trial(RhumbMode::LatitudeOnly, p.Course, x, p.TrialLat);
        return p.TrialLat - p.ArrLat;
    case 2:
        trial(RhumbMode::GivenLatitude, p.Course, p.Distance, x);
        return NormalizeLongitude(p.TrialLong - p.ArrLong);
    case 3:
        trial(RhumbMode::TrialLatitude, p.Course, x, p.TrialLat);
        return p.TrialLat - p.ArrLat;
    case 4:
        trial(RhumbMode::TrialLongitude, p.Course, x, p.TrialLat);
        return NormalizeLongitude(p.TrialLong - p.ArrLong);
    case 14:
        return MeridionalParts(x) - p.TargetParts;
    default:
        return 0.0;
    }
}

bool SameLatitude(double lat1, double lat2)
{
    if (std::fabs(lat1) < SamePlace / 2.0 && std::fabs(lat2) < SamePlace / 2.0) return true;
    return numeric::Sign(lat1) == numeric::Sign(lat2) && std::fabs(lat1 - lat2) < SamePlace;
}

double FlipLongitude(double x)
{
    if (x < 0.0) return x + 360.0;
    return x > 180.0 ? x - 360.0 : x;
}

bool SameLongitude(double long1, double long2)
{
    const double apart = std::fabs(FlipLongitude(long1) - FlipLongitude(long2));
    return apart < SamePlace || apart > 359.99992;
}

double CourseFromQuadrant(double c, double lat1, double long1, double lat2, double long2)
{
    c = std::fabs(c);
    const bool southward = lat2 - lat1 <= 0.0;
    const bool eastward = NormalizeLongitude(long2 - long1) > 0.0;
    if (southward) return eastward ? 180.0 - c : 180.0 + c;
    return eastward ? c : 360.0 - c;
}

double IsometricLatitude(double phi, double e)
{
    const double eSin = e * std::sin(phi);
    return numeric::NaturalLog(std::tan(phi / 2.0 + numeric::QuarterPi)) +
           (e / 2.0) * std::log((1.0 - eSin) / (1.0 + eSin));
}

} // namespace merov::sailing
