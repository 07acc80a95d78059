#include "sailing/rhumb_solutions.h"

#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "numeric/message_box.h"
#include "sailing/ellipsoid.h"
#include "sailing/naut_lib_fct.h"
#include "sailing/rhumb_line.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace merov::sailing
{
namespace
{

using numeric::DegToRad;
using numeric::Finite;
using numeric::NormalizeLongitude;
using numeric::Quotient;
using numeric::RadToDeg;

constexpr double GreatestDistance = 21638.8; // miles
const char* const NoSolution = "There is no solution to the problem.";

// Tells why there is no answer; `answer` becomes `value` and the distance 0.
void Refuse(const std::vector<std::string>& lines, double& answer, double value, double& distance)
{
    numeric::ShowWarning(" Error in nautical routine", lines);
    answer = value;
    distance = 0.0;
}

// A tolerance of 1e-6 mile: near a parallel the residual in degrees is too coarse for a finer one.
double SearchDistance(NautLibFct& functions, double start, int n, double step = 10.0)
{
    bool failed = false;
    return numeric::FindRoot(functions, start, step, 0.0, numeric::LargestDouble, false, 1e-6, 100, n, true, failed);
}

double SearchCourse(NautLibFct& functions, double start)
{
    // Close to east or west a step of 0.001 degree would leap over the root, which lies within some
    // cos C of the start.
    const double step = std::min(0.001, 10.0 * std::fabs(std::cos(start * DegToRad)));
    bool failed = false;
    return numeric::FindRoot(functions, start, step, 0.0, 360.0, true, 1e-8, 1000, 0, true, failed);
}

double SearchLatitude(NautLibFct& functions, double start, int n)
{
    bool failed = false;
    return numeric::FindRoot(functions, start, 0.1, -90.0, 90.0, true, 1e-8, 100, n, true, failed);
}

// Isometric latitude on the sphere.
double SphericalPsi(double phi)
{
    return numeric::NaturalLog(std::tan(phi / 2.0 + numeric::QuarterPi));
}

bool IsDueEastOrWest(double course)
{
    return course == 90.0 || course == 270.0;
}

double PartsBetween(double lat1, double lat2)
{
    return (MeridionalParts(lat2) - MeridionalParts(lat1)) / 60.0;
}

} // namespace

void RhumbLineInverse(double lat1, double long1, double lat2, double long2, double& course, double& distance, double r,
                      double a)
{
    const bool sameParallel = SameLatitude(lat1, lat2);
    if (sameParallel && SameLongitude(long1, long2)) {
        course = 0.0;
        distance = 0.0;
        return;
    }
    lat1 = OffSouthPole(lat1);
    lat2 = OffSouthPole(lat2);
    const double dLong = NormalizeLongitude(long2 - long1);
    const double phi1 = lat1 * DegToRad;
    const double phi2 = lat2 * DegToRad;

    // On the Normal Sphere the result, on an ellipsoid the start of the search.
    const bool sphere = IsSphere(r);
    double c = numeric::HalfPi;
    if (sameParallel) {
        distance = sphere ? std::fabs(std::cos(phi1) * dLong) * 60.0 : std::fabs(dLong * DegToRad * a * std::cos(phi1));
    } else {
        c = sphere ? std::atan(Quotient(dLong, PartsBetween(lat1, lat2)))
                   : std::atan(Quotient(dLong * DegToRad, SphericalPsi(phi2) - SphericalPsi(phi1)));
        distance = sphere ? std::fabs(Quotient(std::fabs(lat2 - lat1), std::cos(c))) * 60.0
                          : std::fabs(Quotient((phi2 - phi1) * a, std::cos(c)));
    }
    course = CourseFromQuadrant(c * RadToDeg, lat1, long1, lat2, long2);
    if (sphere) return;

    NautLibFct functions;
    SailingProblem& problem = functions.Sailing;
    problem = {.DepLat = lat1,
               .DepLong = long1,
               .ArrLat = lat2,
               .ArrLong = long2,
               .Course = course,
               .Distance = distance,
               .TrialLat = lat2,
               .InverseFlattening = r,
               .SemiMajorAxis = a};
    if (sameParallel) {
        // Close to a pole ten miles lead half round the parallel.
        distance = SearchDistance(functions, distance, 4, std::min(10.0, distance));
        return;
    }
    course = SearchCourse(functions, course);
    problem.Course = course;
    distance = SearchDistance(functions, distance, 1);
}

void RhumbLineToLatitude(double lat1, double long1, double course, double lat2, double& long2, double& distance,
                         double r, double a)
{
    if (SameLatitude(lat1, lat2)) {
        if (IsDueEastOrWest(course))
            Refuse({"You have entered 2 same latitudes. There is no single solution to the problem."}, long2, long1,
                   distance);
        else
            Refuse({"You have entered 2 same latitudes and a course which is neither E nor W.", NoSolution}, long2,
                   long1, distance);
        return;
    }
    const double angle = numeric::CompassToMath(course);
    if (angle > 180.0 && lat2 > lat1) {
        Refuse({"The arrival latitude is North of the departure latitude but your course is headed to the South.",
                NoSolution},
               long2, 0.0, distance);
        return;
    }
    if (angle < 180.0 && lat2 < lat1) {
        Refuse({"The arrival latitude is South of the departure latitude but your course is headed to the North.",
                NoSolution},
               long2, 0.0, distance);
        return;
    }
    lat1 = OffSouthPole(lat1);
    const double c = course * DegToRad;
    const double phi1 = lat1 * DegToRad;
    const double phi2 = lat2 * DegToRad;
    const bool sphere = IsSphere(r);
    distance = sphere ? std::fabs(Quotient((lat2 - lat1) * 60.0, std::cos(c)))
                      : std::fabs(Quotient((phi2 - phi1) * a, std::cos(c)));
    // Along a parallel no other latitude is ever met. The estimate for an ellipsoid is good to 1 %, so
    // that one of twice the limit needs no search, which would fail from so far away.
    if (sphere ? IsDueEastOrWest(course) : distance > 2.0 * GreatestDistance) {
        Refuse({NoSolution}, long2, 0.0, distance);
        return;
    }
    if (sphere) {
        long2 = NormalizeLongitude(Finite(long1 + std::tan(c) * PartsBetween(lat1, lat2)));
        return;
    }
    const double e = Eccentricity(r);
    const double dPsi = IsometricLatitude(phi2, e) - IsometricLatitude(phi1, e);
    long2 = NormalizeLongitude(Finite((long1 * DegToRad + std::tan(c) * dPsi) * RadToDeg));

    NautLibFct functions;
    functions.Sailing = {
        .DepLat = lat1, .DepLong = long1, .ArrLat = lat2, .Course = course, .InverseFlattening = r, .SemiMajorAxis = a};
    distance = SearchDistance(functions, distance, 3);
    if (distance > GreatestDistance) Refuse({NoSolution}, long2, 0.0, distance);
}

namespace
{

// The solution once the entries are known to allow one. False when the track ends at a pole first.
bool RunToLongitude(double lat1, double long1, double course, double long2, double& lat2, double& distance, double r,
                    double a)
{
    const bool sphere = IsSphere(r);
    const double dLong = NormalizeLongitude(long2 - long1);
    const double phi1 = lat1 * DegToRad;
    const double c = course * DegToRad;
    NautLibFct functions;
    SailingProblem& problem = functions.Sailing;
    problem = {.DepLat = lat1,
               .DepLong = long1,
               .ArrLong = long2,
               .Course = course,
               .InverseFlattening = r,
               .SemiMajorAxis = a};

    if (IsDueEastOrWest(course)) {
        lat2 = lat1;
        distance = sphere ? std::fabs(dLong * 60.0 * std::cos(phi1))
                          : SearchDistance(functions, std::fabs(dLong * DegToRad * a * std::cos(phi1)), 4);
        return true;
    }
    // First on a sphere with the radius a.
    const bool band = InEastWestBand(course);
    double phi2;
    if (band) {
        distance = std::fabs(dLong * DegToRad * a * std::cos(phi1) / std::sin(c));
        phi2 = phi1 + (distance / a) * std::cos(c);
    } else {
        const double tanC = std::tan(c);
        const double psi2 = Quotient(dLong * DegToRad + SphericalPsi(phi1) * tanC, tanC);
        phi2 = 2.0 * std::atan(Finite(std::exp(psi2))) - numeric::HalfPi;
        distance = std::fabs(Quotient((phi2 - phi1) * a, std::cos(c)));
    }
    lat2 = phi2 * RadToDeg;
    if (std::fabs(std::fabs(lat2) - 90.0) < 1e-6) return false;

    if (!sphere) {
        distance = SearchDistance(functions, distance, 4);
        problem.Distance = distance;
        // Near east and west a step of the latitude search would swing the longitude right round.
        if (band)
            RhumbLineTrial(RhumbMode::LatitudeOnly, lat1, long1, course, distance, lat2, problem.TrialLong, r, a);
        else
            lat2 = SearchLatitude(functions, lat2, 2);
    } else if (band) {
        distance = std::fabs(dLong * 60.0 * std::cos(phi1) / std::sin(c));
        lat2 = (distance / 60.0) * std::cos(c) + lat1;
    } else {
        problem.TargetParts = Quotient(dLong, std::tan(c)) * 60.0 + MeridionalParts(lat1);
        lat2 = SearchLatitude(functions, lat2, 14);
        distance = std::fabs(Quotient((lat2 - lat1) * 60.0, std::cos(c)));
    }
    return true;
}

} // namespace

void RhumbLineToLongitude(double lat1, double long1, double course, double long2, double& lat2, double& distance,
                          double r, double a)
{
    if (SameLongitude(long1, long2)) {
        if (course == 0.0 || course == 180.0)
            Refuse({"You have entered 2 same longitudes. There is no single solution to the problem."}, lat2, lat1,
                   distance);
        else
            Refuse({"You have entered 2 same longitudes and a course which is neither N nor S.", NoSolution}, lat2,
                   lat1, distance);
        return;
    }
    const double dLong = NormalizeLongitude(long2 - long1);
    if (dLong > 0.0 && course > 180.0) {
        Refuse({"The arrival longitude is East of the departure longitude but your course is headed to the West.",
                NoSolution},
               lat2, 0.0, distance);
        return;
    }
    if (dLong < 0.0 && course < 180.0) {
        Refuse({"The arrival longitude is West of the departure longitude but your course is headed to the East.",
                NoSolution},
               lat2, 0.0, distance);
        return;
    }
    if (!RunToLongitude(OffSouthPole(lat1), long1, course, long2, lat2, distance, r, a))
        Refuse({NoSolution}, lat2, 0.0, distance);
}

} // namespace merov::sailing
