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
    double precession[3][3];
    eraPmat76(ERFA_DJ00, tt, precession);
    double psi = 0.0;
    double eps = 0.0;
    eraNut80(ERFA_DJ00, tt, &psi, &eps);
    double nutation[3][3];
    eraNumat(eraObl80(ERFA_DJ00, tt), psi, eps, nutation);
    double ofDate[3];
    eraRxp(precession, direction, ofDate);
    eraRxp(nutation, ofDate, ofDate);
    double ra = 0.0;
    double dec = 0.0;
    eraC2s(ofDate, &ra, &dec);
    const double sidereal =
        dynamical == 0.0 ? eraGst94(ERFA_DJ00, days) : eraGmst82(ERFA_DJ00, days) + eraEqeq94(ERFA_DJ00, tt);
    return {eraAnp(sidereal - ra) * ERFA_DR2D, dec * ERFA_DR2D};
}

/// A star's mean place and motion of J2000.0: radians, and radians a year in the coordinates.
struct ErfaStarData {
    double RA = 0.0;
    double Dec = 0.0;
    double MotionRA = 0.0;
    double MotionDec = 0.0;
};

/// A star's apparent place. @param velocity  of the Earth, in units of that of light, J2000.0 axes
inline Place ErfaStar(const ErfaStarData& star, double days, double velocity[3])
{
    double observer[3] = {0.0, 0.0, 0.0};
    double direction[3];
    eraPmpx(star.RA, star.Dec, star.MotionRA, star.MotionDec, 0.0, 0.0, days / ERFA_DJY, observer, direction);
    double seen[3];
    eraAb(direction, velocity, 1.0, std::sqrt(1.0 - eraPdp(velocity, velocity)), seen);
    return ErfaApparent(seen, days);
}

/// The Earth's barycentric velocity by eraEpv00, in units of that of light, and its heliocentric place.
inline void ErfaEarth(double days, double velocity[3], double place[3])
{
    double heliocentric[2][3];
    double barycentric[2][3];
    eraEpv00(ERFA_DJ00, days, heliocentric, barycentric);
    eraSxp(ERFA_AULT / ERFA_DAYSEC, barycentric[1], velocity);
    eraCp(heliocentric[0], place);
}

/// Turns a vector from the ecliptic to the equator, both of J2000.0.
inline void EclipticToEquatorJ2000(double vector[3])
{
    double turn[3][3];
    eraIr(turn);
    eraRx(-84381.448 * ERFA_DAS2R, turn);
    eraRxp(turn, vector, vector);
}

/// The Earth's velocity from the Sun's mean longitude and two terms of the equation of the centre, good
/// to a hundredth of itself: the cheapest that a navigator's aberration allows.
inline void ErfaEarthVelocity(double days, double velocity[3])
{
    const double t = days / ERFA_DJC;
    const double anomaly = eraFalp03(t);
    const double longitude =
        eraFaf03(t) + eraFaom03(t) - eraFad03(t) + 0.03342 * std::sin(anomaly) + 0.00035 * std::sin(2.0 * anomaly);
    const double obliquity = 84381.448 * ERFA_DAS2R;
    const double k = 20.49552 * ERFA_DAS2R;
    velocity[0] = k * std::sin(longitude);
    velocity[1] = -k * std::cos(longitude) * std::cos(obliquity);
    velocity[2] = -k * std::cos(longitude) * std::sin(obliquity);
}

/// The Moon's place by eraMoon98; `distance` in astronomical units.
inline Place ErfaMoon(double days, double& distance, double dynamical = 0.0)
{
    double moon[2][3];
    eraMoon98(ERFA_DJ00, days + dynamical, moon);
    distance = eraPm(moon[0]);
    return ErfaApparent(moon[0], days, dynamical);
}

/// Differences of two sets of places in minutes of arc: rms and largest, in hour angle times cosine of
/// declination and in declination.
class PlaceDifferences
{
public:
    void Add(const Place& ours, const Place& theirs)
    {
        const double hourAngle = std::remainder(ours.GHA - theirs.GHA, 360.0) * std::cos(theirs.Dec * ERFA_DD2R);
        Add(hourAngle * 60.0, (ours.Dec - theirs.Dec) * 60.0);
    }
    double RmsHourAngle() const { return std::sqrt(sumHourAngle_ / count_); }
    double RmsDec() const { return std::sqrt(sumDec_ / count_); }
    double MaxHourAngle() const { return maxHourAngle_; }
    double MaxDec() const { return maxDec_; }
    void Print(const std::string& what) const
    {
        std::printf("%-46s rms %.4f %.4f  max %.4f %.4f  (GHA cos dec, dec; minutes of arc)\n", what.c_str(),
                    RmsHourAngle(), RmsDec(), MaxHourAngle(), MaxDec());
    }

private:
    void Add(double hourAngle, double dec)
    {
        sumHourAngle_ += hourAngle * hourAngle;
        sumDec_ += dec * dec;
        maxHourAngle_ = std::max(maxHourAngle_, std::fabs(hourAngle));
        maxDec_ = std::max(maxDec_, std::fabs(dec));
        ++count_;
    }
    double sumHourAngle_ = 0.0;
    double sumDec_ = 0.0;
    double maxHourAngle_ = 0.0;
    double maxDec_ = 0.0;
    int count_ = 0;
};

/// Centuries from J2000.0, evenly spread over 1950..2050, the same in each run.
class RandomCenturies
{
public:
    double operator()() { return spread_(generator_); }

private:
    std::mt19937_64 generator_{1950};
    std::uniform_real_distribution<double> spread_{-0.5, 0.5};
};

} // namespace merov::test
