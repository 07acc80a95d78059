#pragma once

#include <erfa.h>
#include <erfam.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>

/// Apparent places by the IAU 1976/1980/1994 routines of ERFA, the reference for our own.

namespace merov::test
{

/// Where a body stands, degrees.
struct Place {
    double GHA = 0.0;
    double Dec = 0.0;
};

/// A direction, equator and equinox of J2000.0, to the place of date: precession 1976, nutation 1980,
/// sidereal time 1982/1994.
/// @param days       days from J2000.0 of universal time
/// @param dynamical  days by which dynamical time is ahead
inline Place ErfaApparent(double direction[3], double days, double dynamical = 0.0)
{
    const double tt = days + dynamical;
    double precession[3][3], nutation[3][3], psi, eps, ofDate[3], ra, dec;
    eraPmat76(ERFA_DJ00, tt, precession);
    eraNut80(ERFA_DJ00, tt, &psi, &eps);
    eraNumat(eraObl80(ERFA_DJ00, tt), psi, eps, nutation);
    eraRxp(precession, direction, ofDate);
    eraRxp(nutation, ofDate, ofDate);
    eraC2s(ofDate, &ra, &dec);
    const double sidereal =
        dynamical == 0.0 ? eraGst94(ERFA_DJ00, days) : eraGmst82(ERFA_DJ00, days) + eraEqeq94(ERFA_DJ00, tt);
    return {eraAnp(sidereal - ra) * ERFA_DR2D, dec * ERFA_DR2D};
}

/// The same as the Earth sees it that moves with `velocity`, in units of that of light, J2000.0 axes.
inline Place ErfaSeen(double direction[3], double velocity[3], double days, double dynamical = 0.0)
{
    // The Sun is taken far away: light isn't bent.
    double seen[3];
    eraAb(direction, velocity, 1e9, std::sqrt(1.0 - eraPdp(velocity, velocity)), seen);
    return ErfaApparent(seen, days, dynamical);
}

/// A star's mean place and motion of J2000.0: radians, and radians a year in the coordinates.
struct ErfaStarData {
    double RA = 0.0;
    double Dec = 0.0;
    double MotionRA = 0.0;
    double MotionDec = 0.0;
};

/// A star's apparent place.
inline Place ErfaStar(const ErfaStarData& star, double days, double velocity[3])
{
    double observer[3] = {0.0, 0.0, 0.0}, direction[3];
    eraPmpx(star.RA, star.Dec, star.MotionRA, star.MotionDec, 0.0, 0.0, days / ERFA_DJY, observer, direction);
    return ErfaSeen(direction, velocity, days);
}

/// The Earth's barycentric velocity by eraEpv00, in units of that of light, and its heliocentric place.
inline void ErfaEarth(double days, double velocity[3], double place[3])
{
    double heliocentric[2][3], barycentric[2][3];
    eraEpv00(ERFA_DJ00, days, heliocentric, barycentric);
    eraSxp(ERFA_AULT / ERFA_DAYSEC, barycentric[1], velocity);
    eraCp(heliocentric[0], place);
}

/// The Sun's place by eraEpv00, the Earth's heliocentric place turned round; `distance` in astronomical units.
inline Place ErfaSun(double days, double& distance, double dynamical = 0.0)
{
    double velocity[3], earth[3], direction[3];
    ErfaEarth(days + dynamical, velocity, earth);
    eraPn(earth, &distance, direction);
    eraSxp(-1.0, direction, direction);
    return ErfaSeen(direction, velocity, days, dynamical);
}

/// The Moon's place by eraMoon98; `distance` in astronomical units.
inline Place ErfaMoon(double days, double& distance, double dynamical = 0.0)
{
    double moon[2][3];
    eraMoon98(ERFA_DJ00, days + dynamical, moon);
    distance = eraPm(moon[0]);
    return ErfaApparent(moon[0], days, dynamical);
}

/// Turns a vector from the ecliptic to the equator, both of J2000.0.
inline void EclipticToEquatorJ2000(double vector[3])
{
    double turn[3][3];
    eraIr(turn);
    eraRx(-84381.448 * ERFA_DAS2R, turn);
    eraRxp(turn, vector, vector);
}

/// What differences from a reference may be at most.
struct Bound {
    double Rms;
    double Max;
};

/// A set of differences from a reference.
class Spread
{
public:
    void Add(double difference)
    {
        sum_ += difference * difference;
        max_ = std::max(max_, std::fabs(difference));
        ++count_;
    }
    double Rms() const { return std::sqrt(sum_ / count_); }
    double Max() const { return max_; }
    /// Prints rms and largest and tells whether both are below `bound`.
    bool Within(const std::string& what, const Bound& bound) const
    {
        std::printf("%-60s rms %9.3g  max %9.3g\n", what.c_str(), Rms(), Max());
        return Rms() < bound.Rms && Max() < bound.Max;
    }

private:
    double sum_ = 0.0;
    double max_ = 0.0;
    int count_ = 0;
};

/// Differences of two sets of places in minutes of arc: hour angle times cosine of declination, declination.
struct PlaceDifferences {
    Spread HourAngle;
    Spread Dec;

    void Add(const Place& ours, const Place& theirs)
    {
        HourAngle.Add(60.0 * std::remainder(ours.GHA - theirs.GHA, 360.0) * std::cos(theirs.Dec * ERFA_DD2R));
        Dec.Add(60.0 * (ours.Dec - theirs.Dec));
    }
    bool Within(const std::string& what, const Bound& hourAngle, const Bound& dec) const
    {
        const bool along = HourAngle.Within(what + ", GHA cos dec, '", hourAngle);
        return Dec.Within(what + ", dec, '", dec) && along;
    }
};

/// Calls `compare` with centuries from J2000.0 evenly spread over 1950..2050, the same in each run.
template <class Compare>
void OverTheCentury(int dates, Compare compare)
{
    std::mt19937_64 generator(1950);
    std::uniform_real_distribution<double> spread(-0.5, 0.5);
    for (int i = 0; i < dates; ++i)
        compare(spread(generator));
}

} // namespace merov::test
