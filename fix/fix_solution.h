#pragma once

#include "fix/motion_partials.h"
#include "fix/sight_session.h"
#include "numeric/error_trap.h"

namespace merov::fix
{

/// The iteration of one fix: its working arrays, allocated once, and one pass of linearising, solving and
/// correcting. The provisional true position stands in ObsLat[0] and ObsLong[0] of the session, course and
/// speed in Course and Speed. Each formula runs in the trap, so that one which fails leaves its target as
/// it was and the pass goes on.
class FixSolution
{
public:
    /// Allocates for the session's sights. All arguments must outlive the object.
    FixSolution(SightSession& session, double r, double a, numeric::ErrorTrap& trap);

    /// Allocates the equations for NumUnknowns (2 or 4), which must be set by then, and StdDev.
    void AllocateEquations();

    /// Places the ship at each sight, from the position of index 0.
    void RunToSights();

    /// The azimuth of each sight from the ship's place at it.
    void ComputeAzimuths();

    /// One pass; IterCount must have been counted up for it. With two sights the lines of position are
    /// crossed, otherwise the equations are solved robustly.
    /// @return true when the corrections were small; never in the first pass
    bool Iterate();

    /// Standard deviations, ellipse and circle from the last pass; all 0 with two sights.
    void ComputeStatistics();

    /// Flags of the good observations; filled by whoever chooses the routine.
    SightFlags ObsGood;

private:
    /// What a pass corrects.
    struct Unknowns {
        double Lat, Long, Course, Speed;
    };

    Unknowns Current() const;
    void BuildDesignMatrix();
    void CrossTwoLines();
    void SolveEquations();
    void RemoveSystematicError();
    void ApplyCorrections();
    bool HasConverged(const Unknowns& before) const;

    SightSession& session_;
    double r_;
    double a_;
    numeric::ErrorTrap& trap_;
    int n_;
    bool full_ = false; // course and speed are unknowns too

    numeric::Vector approxLat_;
    MotionPartials partials_;
    numeric::Matrix design_;      // n rows, a column per unknown
    numeric::Vector intercepts_;  // radians
    numeric::Vector residuals_;   // radians; of the last solution, unweighted
    double meanResidual_ = 0.0;   // radians
    numeric::Vector corrections_; // radians; speed in knots
    double latCorrection_ = 0.0;  // degrees; of two sights
    double longCorrection_ = 0.0;
    numeric::Matrix factor_; // triangular factor of the normal matrix
    numeric::Matrix transposed_;
    numeric::Matrix covariance_;
};

} // namespace merov::fix
