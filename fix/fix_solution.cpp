#include "fix/fix_solution.h"

#include "fix/confidence.h"
#include "fix/nautical_lib.h"
#include "numeric/least_squares.h"
#include "numeric/math_lib.h"
#include "numeric/matrix_lib.h"

#include <cmath>

namespace merov::fix
{

using numeric::DegToRad;
using numeric::Quotient;
using numeric::RadToDeg;

FixSolution::FixSolution(SightSession& session, double r, double a, numeric::ErrorTrap& trap)
    : ObsGood(1, session.ObsCount), session_(session), r_(r), a_(a), trap_(trap), n_(session.ObsCount),
      approxLat_(1, n_), partials_(n_)
{
}

void FixSolution::AllocateEquations()
{
    const int unknowns = session_.NumUnknowns;
    full_ = unknowns == 4;
    session_.StdDev.Resize(1, unknowns);
    design_.Resize(n_, unknowns);
    intercepts_.Resize(1, n_);
    residuals_.Resize(1, n_);
    corrections_.Resize(1, unknowns);
    factor_.Resize(unknowns, unknowns);
    transposed_.Resize(unknowns, unknowns);
    covariance_.Resize(unknowns, unknowns);
}

void FixSolution::RunToSights()
{
    trap_.Step([&] {
        RunPositions(n_, session_.Course, session_.Speed, session_.ObsTime, session_.ObsLat, session_.ObsLong,
                     approxLat_, r_, a_);
    });
}

void FixSolution::ComputeAzimuths()
{
    for (int i = 1; i <= n_; ++i)
        trap_.Assign(session_.ObsAzimuth[i], [&] {
            return ComputeAzimuth(session_.ObsLat[i], session_.ObsLong[i], session_.ObsGHA[i], session_.ObsDec[i]);
        });
}

bool FixSolution::Iterate()
{
    SightSession& s = session_;
    const bool first = s.IterCount <= 1;
    const Unknowns before = Current();
    if (!first) RunToSights();
    trap_.Step([&] {
        CorrectAltitudes(n_, s.HeightOfEye, s.AirTemp, s.WaterTemp, s.Pressure, s.ObsLat, s.ObsLong, s.ObsBody,
                         s.ObsAltitude, s.ObsInstCorr, s.ObsDist, s.ObsDec, s.ObsGHA, s.ObsHo, s.ObsHc, s.ObsIntercept);
    });
    trap_.Step([&] {
        ComputePartials(n_, s.Course, s.Speed, s.ObsTime, s.ObsLat, s.ObsLong, approxLat_, s.ObsDec, s.ObsGHA, s.ObsHc,
                        s.NumUnknowns, partials_, r_, a_);
    });
    BuildDesignMatrix();
    if (n_ == 2)
        CrossTwoLines();
    else
        SolveEquations();
    ApplyCorrections();
    return !first && HasConverged(before);
}

FixSolution::Unknowns FixSolution::Current() const
{
    return {session_.ObsLat[0], session_.ObsLong[0], session_.Course, session_.Speed};
}

void FixSolution::BuildDesignMatrix()
{
    const MotionPartials& p = partials_;
    for (int i = 1; i <= n_; ++i) {
        const auto byLatAndLong = [&](const numeric::Vector& lat, const numeric::Vector& lon) {
            return p.PartialLat[i] * lat[i] + p.PartialLong[i] * lon[i];
        };
        trap_.Assign(design_(i, 1), [&] { return byLatAndLong(p.LatByLat, p.LongByLat); });
        trap_.Assign(design_(i, 2), [&] { return p.PartialLong[i]; });
        if (!full_) continue;
        trap_.Assign(design_(i, 3), [&] { return byLatAndLong(p.LatByCourse, p.LongByCourse); });
        trap_.Assign(design_(i, 4), [&] { return byLatAndLong(p.LatBySpeed, p.LongBySpeed); });
    }
}

void FixSolution::CrossTwoLines()
{
    const numeric::Matrix& A = design_;
    const numeric::Vector& b = session_.ObsIntercept;
    trap_.Assign(latCorrection_,
                 [&] { return Quotient(b[1] * A(2, 2) - b[2] * A(1, 2), A(1, 1) * A(2, 2) - A(2, 1) * A(1, 2)); });
    // From the latitude as it now stands, also when its own formula has just failed.
    trap_.Assign(longCorrection_, [&] { return Quotient(b[1] - A(1, 1) * latCorrection_, A(1, 2)); });
    trap_.Assign(corrections_[1], [&] { return latCorrection_ * DegToRad; });
    trap_.Assign(corrections_[2], [&] { return longCorrection_ * DegToRad; });
}

void FixSolution::SolveEquations()
{
    for (int i = 1; i <= n_; ++i)
        trap_.Assign(intercepts_[i], [&] { return session_.ObsIntercept[i] * DegToRad; });
    trap_.Step([&] { numeric::SolveLeastSquares(design_, intercepts_, corrections_, false, factor_); });
    trap_.Step([&] { numeric::ComputeResiduals(design_, intercepts_, corrections_, residuals_); });
    if (session_.FindSystErr) RemoveSystematicError();
    trap_.Step([&] {
        numeric::SolveRobustLeastSquares(design_, intercepts_, residuals_, corrections_, session_.ObsWeight, true,
                                         factor_);
    });
}

void FixSolution::RemoveSystematicError()
{
    trap_.Assign(meanResidual_, [&] { return numeric::MeanOf(residuals_); });
    // Taken out in every pass, shown as the first one finds it.
    if (session_.IterCount == 1) trap_.Assign(session_.SystErr, [&] { return -meanResidual_ * RadToDeg * 60.0; });
    for (int i = 1; i <= n_; ++i) {
        trap_.Assign(intercepts_[i], [&] { return intercepts_[i] + meanResidual_; });
        trap_.Assign(residuals_[i], [&] { return residuals_[i] - meanResidual_; });
    }
}

void FixSolution::ApplyCorrections()
{
    SightSession& s = session_;
    trap_.Assign(s.ObsLat[0], [&] { return s.ObsLat[0] + corrections_[1] * RadToDeg; });
    trap_.Assign(s.ObsLong[0], [&] { return s.ObsLong[0] + corrections_[2] * RadToDeg; });
    if (!full_) return;
    trap_.Assign(s.Course, [&] { return s.Course + corrections_[3] * RadToDeg; });
    trap_.Assign(s.Speed, [&] { return s.Speed + corrections_[4]; });
}

bool FixSolution::HasConverged(const Unknowns& before) const
{
    constexpr double PositionLimit = 0.0004; // degrees
    constexpr double CourseLimit = 0.25;     // degrees
    constexpr double SpeedLimit = 0.025;     // knots
    const Unknowns now = Current();
    if (!(std::fabs(now.Lat - before.Lat) < PositionLimit && std::fabs(now.Long - before.Long) < PositionLimit))
        return false;
    return !full_ ||
           (std::fabs(now.Course - before.Course) < CourseLimit && std::fabs(now.Speed - before.Speed) < SpeedLimit);
}

void FixSolution::ComputeStatistics()
{
    SightSession& s = session_;
    if (n_ == 2) {
        s.StdDev[1] = s.StdDev[2] = s.EllipseEW = s.EllipseNS = s.CircleRadius = 0.0;
        return;
    }
    trap_.Step([&] { numeric::InvertUpperTriangular(factor_); });
    trap_.Step([&] { numeric::TransposeMatrix(factor_, transposed_); });
    trap_.Step([&] { numeric::MultiplyMatrices(factor_, transposed_, covariance_); });
    double variance = 0.0;
    trap_.Assign(variance, [&] { return Quotient(numeric::DotProduct(residuals_, residuals_), n_ - s.NumUnknowns); });
    trap_.Step([&] { numeric::ScaleMatrix(variance, covariance_, covariance_); });
    for (int k = 1; k <= s.NumUnknowns; ++k)
        trap_.Assign(s.StdDev[k], [&] { return numeric::SquareRoot(covariance_(k, k)) * (k < 4 ? RadToDeg : 1.0); });
    trap_.Assign(s.EllipseEW, [&] { return numeric::SquareRoot(EllipseFactor(s.Probability)) * s.StdDev[2]; });
    trap_.Assign(s.EllipseNS, [&] { return numeric::SquareRoot(EllipseFactor(s.Probability)) * s.StdDev[1]; });
    trap_.Assign(s.CircleRadius, [&] { return EquivalentCircleRadius(s.Probability, s.StdDev[1], s.StdDev[2]); });
}

} // namespace merov::fix
