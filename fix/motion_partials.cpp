#include "fix/motion_partials.h"

#include "fix/nautical_lib.h"
#include "numeric/fault.h"
#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "sailing/rhumb_line.h"

#include <cmath>

namespace merov::fix
{

using numeric::DegToRad;
using numeric::Finite;
using numeric::Quotient;
using numeric::Vector;

namespace
{

/// True when bearing `z` lies strictly between two others, clockwise from `low` to `high`.
bool LiesBetween(double z, double low, double high)
{
    return numeric::AngleSide(z, high) == -1 && numeric::AngleSide(z, low) == 1;
}

/// True when two bearings, or one and the opposite of the other, lie strictly within 3.6 degrees.
bool AreNearlyParallel(double z, double taken)
{
    return LiesBetween(z, taken - 3.6, taken + 3.6) || LiesBetween(z, taken + 176.4, taken + 183.6);
}

/// What all sights of one call share: course, and the ellipsoid at latitude 0. Angles in radians.
struct Base {
    Base(double course, double lat0, double r, double a);

    double a;
    double e;
    double e2;
    double sinC, cosC, tanC;
    double phi0;
    double sin2Phi0, cos2Phi0;
    double w0;     // sqrt(1 - e² sin² phi0)
    double m0, n0; // radii of curvature, miles
};

Base::Base(double course, double lat0, double r, double semiMajorAxis)
    : a(semiMajorAxis), e(sailing::Eccentricity(r)), e2(e * e), sinC(std::sin(course * DegToRad)),
      cosC(std::cos(course * DegToRad)), tanC(std::tan(course * DegToRad)), phi0(lat0 * DegToRad),
      sin2Phi0(std::sin(2.0 * phi0)), cos2Phi0(std::cos(2.0 * phi0)), w0(0.0), m0(MeridionalRadius(lat0, r, a)),
      n0(PrimeVerticalRadius(lat0, r, a))
{
    const double s = std::sin(phi0);
    w0 = std::sqrt(1.0 - e2 * s * s);
}

/// One sight: hours and miles from the instant of the true position, latitude there, and its auxiliary G,
/// the derivative by latitude 0 of the latitude that RunPositions calls approximate.
struct Leg {
    double hours;
    double distance;
    double phi;
    double g;
};

Leg MakeLeg(const Base& base, double hours, double speed, double lat)
{
    const double distance = hours * speed;
    return {hours, distance, lat * DegToRad,
            1.0 - distance * base.cosC * 3.0 * base.e2 * base.sin2Phi0 * base.w0 / (2.0 * base.a * (1.0 - base.e2))};
}

/// The derivatives near east and west, where the rhumb line runs along the middle parallel.
void NearParallelPartials(const Base& base, const Leg& leg, int i, double speed, bool motion, MotionPartials& out)
{
    const double phiMean = (leg.phi + base.phi0) / 2.0;
    const double tanMean = std::tan(phiMean);
    const double cosMean = std::cos(phiMean);

    out.LatByLat[i] = Finite(leg.g);
    out.LongByLat[i] =
        Finite(((leg.g + 1.0) * (tanMean / 2.0) / base.n0 - base.sin2Phi0 * base.e2 / (2.0 * base.a * base.w0)) *
               Quotient(leg.distance * base.sinC, cosMean));
    if (!motion) return;
    out.LatByCourse[i] = Finite(-leg.distance * base.sinC / base.m0);
    out.LongByCourse[i] = Finite(Quotient(leg.distance / base.n0, cosMean) *
                                 (tanMean * base.sinC * out.LatByCourse[i] / 2.0 + base.cosC));
    out.LatBySpeed[i] = Finite(leg.hours * base.cosC / base.m0);
    out.LongBySpeed[i] =
        Finite(Quotient(leg.hours * base.sinC / base.n0, cosMean) * (tanMean * speed * out.LatBySpeed[i] / 2.0 + 1.0));
}

/// Derivative of the isometric latitude.
double IsometricRate(double phi, double e2)
{
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    return Quotient(1.0, c) - e2 * c / (1.0 - e2 * s * s);
}

/// The derivatives on any other course.
class GeneralPartials
{
public:
    explicit GeneralPartials(const Base& base)
        : base_(base), rate0_(IsometricRate(base.phi0, base.e2)), arcLinear_(1.0 - 0.75 * base.e2),
          arcPeriodic_(0.75 * base.e2)
    {
        const double s = std::sin(base.phi0);
        s1_ = 3.0 * base.e2 * base.sin2Phi0 / (2.0 * std::pow(1.0 - base.e2 * s * s, 2.5));
    }

    void Fill(const Leg& leg, int i, double approxLat, bool motion, MotionPartials& out)
    {
        const double e2 = base_.e2;
        const double phiA = approxLat * DegToRad;
        const double sin2PhiA = std::sin(2.0 * phiA);
        const double cos2PhiA = std::cos(2.0 * phiA);
        const double s2 = (phiA - base_.phi0) * arcLinear_ + (sin2PhiA - base_.sin2Phi0) * (0.375 * e2);
        const double s3 = ((cos2PhiA * leg.g - base_.cos2Phi0) * arcPeriodic_ + arcLinear_ * (leg.g - 1.0)) * base_.m0 /
                          ((1.0 - e2) * base_.a);
        const double k = base_.tanC * IsometricRate(leg.phi, e2);

        out.LatByLat[i] = Finite(1.0 + s1_ * s2 + s3);
        out.LongByLat[i] = Finite(-base_.tanC * rate0_ + out.LatByLat[i] * k);
        if (!motion) return;
        const double b = arcLinear_ + arcPeriodic_ * cos2PhiA;
        out.LatByCourse[i] = Finite(-(leg.distance * base_.sinC / base_.a / (1.0 - e2)) * b);
        out.LatBySpeed[i] = Finite(leg.hours * base_.cosC / base_.a / (1.0 - e2) * b);
        out.LongByCourse[i] = Finite(IsometricStretch(leg.phi) / (base_.cosC * base_.cosC) + k * out.LatByCourse[i]);
        out.LongBySpeed[i] = Finite(k * out.LatBySpeed[i]);
    }

private:
    /// Isometric latitude gained from latitude 0 to phi.
    double IsometricStretch(double phi)
    {
        if (!psi0Known_) {
            psi0_ = sailing::IsometricLatitude(base_.phi0, base_.e);
            psi0Known_ = true;
        }
        return sailing::IsometricLatitude(phi, base_.e) - psi0_;
    }

    const Base& base_;
    double rate0_;
    double arcLinear_; // coefficients of the meridian arc: of the latitude and of its double's cosine
    double arcPeriodic_;
    double s1_;
    double psi0_ = 0.0; // needed with four unknowns only
    bool psi0Known_ = false;
};

/// Derivatives of the computed altitude by the position at the sight. Angles in degrees.
void AltitudePartials(int i, double lat, double lon, double dec, double gha, double hc, MotionPartials& out)
{
    const double phi = lat * DegToRad;
    const double delta = dec * DegToRad;
    const double hourAngle = (lon + gha) * DegToRad;
    const double cosHc = std::cos(hc * DegToRad);
    const double cosPhi = std::cos(phi);
    const double cosDelta = std::cos(delta);
    out.PartialLat[i] = Quotient(std::sin(delta) * cosPhi - std::sin(phi) * cosDelta * std::cos(hourAngle), cosHc);
    out.PartialLong[i] = Quotient(-cosDelta * cosPhi * std::sin(hourAngle), cosHc);
}

} // namespace

short MarkGoodObservations(const Vector& azimuths, SightFlags& good)
{
    const int n = azimuths.Upper();
    for (int i = 1; i <= n; ++i)
        good[i] = 1;
    for (int i = 1; i <= n; ++i) {
        if (good[i] == 0) continue;
        for (int j = i + 1; j <= n; ++j)
            if (AreNearlyParallel(azimuths[j], azimuths[i])) good[j] = 0;
    }
    short count = 0;
    for (int i = 1; i <= n; ++i)
        if (good[i] != 0) ++count;
    return count;
}

MotionPartials::MotionPartials(int n)
    : PartialLat(1, n), PartialLong(1, n), LatByLat(1, n), LongByLat(1, n), LatByCourse(1, n), LongByCourse(1, n),
      LatBySpeed(1, n), LongBySpeed(1, n)
{
}

void ComputePartials(int n, double course, double speed, const Vector& times, const Vector& lats, const Vector& longs,
                     const Vector& approxLat, const Vector& decs, const Vector& ghas, const Vector& hcs,
                     int numUnknowns, MotionPartials& partials, double r, double a)
{
    const bool nearParallel = (course > 89.5 && course < 90.5) || (course > 269.5 && course < 270.5);
    const bool motion = numUnknowns == 4;
    const Base base(course, lats[0], r, a);
    GeneralPartials general(base);
    for (int i = 1; i <= n; ++i) {
        AltitudePartials(i, lats[i], longs[i], decs[i], ghas[i], hcs[i], partials);
        const Leg leg = MakeLeg(base, (times[i] - times[0]) * 24.0, speed, lats[i]);
        if (nearParallel)
            NearParallelPartials(base, leg, i, speed, motion, partials);
        else
            general.Fill(leg, i, approxLat[i], motion, partials);
    }
}

} // namespace merov::fix
