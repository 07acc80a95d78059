#include "tools/coverage/coverage.h"

#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "fix/confidence.h"
#include "fix/nautical_lib.h"
#include "fix/true_position.h"
#include "numeric/math_lib.h"
#include "numeric/message_box.h"
#include "sailing/ellipsoid.h"
#include "sailing/rhumb_line.h"
#include "tools/sight_making.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <string_view>

namespace merov::coverage
{
namespace
{

constexpr double Degree = numeric::DegToRad;
constexpr double MinutesPerDegree = 60.0;

/// Numbers that the standard fixes to the last bit, and normal ones by the transform of Box and Muller, Annals of
/// Mathematical Statistics 29, 610, 1958. The library's own distributions differ from one to the other.
class Random
{
public:
    explicit Random(std::uint64_t seed) : bits_(seed) {}

    /// Evenly spread, `low` up to `high`.
    double Between(double low, double high)
    {
        return low + (high - low) * static_cast<double>(bits_() >> 11) * 0x1p-53;
    }
    std::size_t Below(std::size_t count) { return static_cast<std::size_t>(bits_() % count); }
    double Normal()
    {
        const double radius = std::sqrt(-2.0 * std::log(1.0 - Between(0.0, 1.0)));
        return radius * std::cos(2.0 * numeric::Pi * Between(0.0, 1.0));
    }

private:
    std::mt19937_64 bits_;
};

/// Counts the boxes.
class BoxCounter : public numeric::BoxReceiver
{
public:
    BoxCounter() : scope_(*this) {}
    numeric::BoxAnswer Show(const numeric::Box&) override
    {
        ++Count;
        return numeric::BoxAnswer::Ok;
    }
    int Count = 0;

private:
    numeric::ScopedBoxReceiver scope_;
};

/// A star over the horizon.
struct Candidate {
    std::string_view Body;
    double Azimuth;
};

/// The stars 15 to 70 degrees high.
std::vector<Candidate> StarsInReach(const numeric::GeoPosition& from, double time)
{
    std::vector<Candidate> stars;
    for (const std::string_view code : ephemeris::BodyCodes()) {
        if (ephemeris::IsPlanet(code) || code.starts_with("SUN") || code.starts_with("MOON")) continue;
        ephemeris::BodyPosition star;
        ephemeris::ComputeBodyPosition(code, time, star);
        const double hour = (star.GHA + from.Longitude) * Degree;
        const double lat = from.Latitude * Degree, dec = star.Declination * Degree;
        const double height =
            std::asin(std::sin(lat) * std::sin(dec) + std::cos(lat) * std::cos(dec) * std::cos(hour)) / Degree;
        if (height >= 15.0 && height <= 70.0)
            stars.push_back({code, fix::ComputeAzimuth(from.Latitude, from.Longitude, star.GHA, star.Declination)});
    }
    return stars;
}

/// A first star at random, then always the one whose bearing is farthest from those that were taken. Empty when
/// there are not enough.
std::vector<std::string_view> ChooseStars(std::vector<Candidate> stars, int n, Random& random)
{
    std::vector<std::string_view> chosen;
    if (static_cast<int>(stars.size()) < n) return chosen;
    std::vector<double> bearings;
    std::size_t next = random.Below(stars.size());
    while (static_cast<int>(chosen.size()) < n) {
        chosen.push_back(stars[next].Body);
        bearings.push_back(stars[next].Azimuth);
        stars.erase(stars.begin() + static_cast<std::ptrdiff_t>(next));
        double widest = -1.0;
        for (std::size_t i = 0; i < stars.size(); ++i) {
            double room = 180.0;
            for (const double bearing : bearings)
                room = std::min(room, std::fabs(std::remainder(stars[i].Azimuth - bearing, 360.0)));
            if (room <= widest) continue;
            widest = room;
            next = i;
        }
    }
    return chosen;
}

/// One ship, her place at the time of the fix, and the error-free sights that she took up to then.
struct Trial {
    numeric::GeoPosition At;
    fix::SightSession Session;
};

Trial SetSail(int n, Random& random)
{
    const double start = ephemeris::JoinDateTime({2020, 1, 1, 0, 0, 0});
    for (;;) {
        Trial trial;
        fix::SightSession& s = trial.Session;
        trial.At = {random.Between(-60.0, 60.0), random.Between(-180.0, 180.0)};
        s.TimeTruePos = start + std::floor(random.Between(0.0, 3650.0 * 1440.0)) / 1440.0;
        s.Course = s.OrigCourse = random.Between(0.0, 360.0);
        s.Speed = s.OrigSpeed = random.Between(4.0, 24.0);
        const auto stars = ChooseStars(StarsInReach(trial.At, s.TimeTruePos), n, random);
        if (stars.empty()) continue;

        s.HeightOfEye = 10.0;
        fix::AllocateObservations(s, n);
        s.ObsTime[0] = s.TimeTruePos;
        s.ObsLat[0] = trial.At.Latitude;
        s.ObsLong[0] = trial.At.Longitude;
        for (int i = 1; i <= n; ++i) {
            s.ObsTime[i] = s.TimeTruePos - 2.0 * (n - i) / 1440.0;
            s.ObsBody[i] = stars[static_cast<std::size_t>(i - 1)];
        }
        samples::TakeAltitudes(s, s.Course, s.Speed);
        // The estimate is of an hour before and off by up to ten minutes of arc, which the run carries along.
        const sailing::EarthModel earth = sailing::EllipsoidAt(sailing::DefaultEllipsoidIndex);
        s.TimeEstPos = s.TimeTruePos - 1.0 / 24.0;
        sailing::RhumbLineDirect(trial.At.Latitude, trial.At.Longitude, s.Course, -s.Speed, s.EstLat, s.EstLong,
                                 earth.InverseFlattening, earth.SemiMajorAxisNm);
        s.EstLat += random.Between(-10.0, 10.0) / MinutesPerDegree;
        s.EstLong += random.Between(-10.0, 10.0) / MinutesPerDegree;
        return trial;
    }
}

/// Puts the errors into the altitudes, which are then read to a tenth of a minute.
/// @return the sight with the gross error, 0 for none
int Misread(fix::SightSession& s, const Errors& errors, Random& random)
{
    int gross = 0;
    double slip = 0.0;
    if (errors.GrossHigh > 0.0) {
        gross = 1 + static_cast<int>(random.Below(static_cast<std::size_t>(s.ObsCount)));
        slip = random.Between(errors.GrossLow, errors.GrossHigh);
        if (random.Below(2) == 0) slip = -slip;
    }
    for (int i = 1; i <= s.ObsCount; ++i) {
        const double error = errors.Systematic + errors.Sigma * random.Normal() + (i == gross ? slip : 0.0);
        s.ObsAltitude[i] = std::round((s.ObsAltitude[i] * MinutesPerDegree + error) * 10.0) / 10.0 / MinutesPerDegree;
    }
    return gross;
}

/// True when all other sights have a higher weight.
bool HasLowestWeight(const fix::SightSession& s, int sight)
{
    if (sight == 0) return false;
    const double weight = s.ObsWeight[sight];
    return std::count_if(s.ObsWeight.begin(), s.ObsWeight.end(), [&](double w) { return w <= weight; }) == 1;
}

/// Counts where the true position lies. A fix whose deviations are 0 claims to be exact, and is outside.
void Count(const Trial& trial, Tally& tally)
{
    const fix::SightSession& s = trial.Session;
    const double north = s.TrueLat - trial.At.Latitude;
    const double east = std::remainder(s.TrueLong - trial.At.Longitude, 360.0);
    const double eastMiles = east * std::cos(trial.At.Latitude * Degree);
    tally.Miles.push_back(std::hypot(north, eastMiles) * MinutesPerDegree);
    if (s.StdDev[1] == 0.0 || s.StdDev[2] == 0.0) {
        ++tally.Exact;
        return;
    }
    for (std::size_t p = 0; p < Probabilities.size(); ++p) {
        const double squares = std::pow(north / s.StdDev[1], 2) + std::pow(east / s.StdDev[2], 2);
        const double radius = fix::EquivalentCircleRadius(Probabilities[p], s.StdDev[1], s.StdDev[2]);
        tally.InEllipse[p] += squares <= fix::EllipseFactor(Probabilities[p]);
        tally.InCircle[p] += std::hypot(north, east) <= radius;
        tally.InMiles[p] += std::hypot(north, eastMiles) <= radius;
    }
}

} // namespace

Tally Simulate(const Errors& errors, int sights, int trials, std::uint64_t seed)
{
    const sailing::EarthModel earth = sailing::EllipsoidAt(sailing::DefaultEllipsoidIndex);
    BoxCounter boxes;
    Random random(seed);
    Tally tally;
    tally.Trials = trials;
    for (int i = 0; i < trials; ++i) {
        Trial trial = SetSail(sights, random);
        const int gross = Misread(trial.Session, errors, random);
        trial.Session.FindSystErr = errors.FindSystErr;
        numeric::LastError journal; // of its own, or a box that repeats the one before would not be shown
        boxes.Count = 0;
        fix::ComputeTruePosition(trial.Session, earth.InverseFlattening, earth.SemiMajorAxisNm, journal);
        tally.Messages += boxes.Count > 0;
        tally.GrossNamed += HasLowestWeight(trial.Session, gross);
        Count(trial, tally);
        if (boxes.Count == 0) tally.FarthestSilent = std::max(tally.FarthestSilent, tally.Miles.back());
    }
    std::sort(tally.Miles.begin(), tally.Miles.end());
    return tally;
}

double QuantileOf(const std::vector<double>& values, double p)
{
    const double place = p * static_cast<double>(values.size());
    return values[std::min(values.size() - 1, static_cast<std::size_t>(place))];
}

Interval WilsonInterval(int hits, int trials)
{
    constexpr double z = 1.959964;
    const double n = trials, p = hits / n, z2 = z * z / n;
    const double middle = (p + z2 / 2.0) / (1.0 + z2);
    const double half = z * std::sqrt(p * (1.0 - p) / n + z2 / (4.0 * n)) / (1.0 + z2);
    return {middle - half, middle + half};
}

double PlainCoverage(double probability, int sights)
{
    const double freedom = sights - 2;
    return 1.0 - std::pow(1.0 + fix::EllipseFactor(probability) / freedom, -freedom / 2.0);
}

} // namespace merov::coverage
