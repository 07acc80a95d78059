#pragma once

#include "numeric/arrays.h"

#include <string>

namespace merov::fix
{

/// All inputs and results of one astro fix: the record, nothing else.
///
/// Angles are degrees, north and east positive; times are date-times in GMT (days). The
/// per-observation arrays run from 1 to ObsCount; index 0 of ObsTime, ObsLat and ObsLong stands for
/// the instant of the true position.
struct SightSession {
    // Entered by the user.
    double EstLat = 0.0; ///< estimated position
    double EstLong = 0.0;
    double TimeEstPos = 0.0;  ///< its time
    double TimeTruePos = 0.0; ///< time for which the true position is wanted
    double Course = 0.0;      ///< working course, degrees true; the full routine corrects it
    double Speed = 0.0;       ///< working speed over ground, knots; likewise
    double OrigCourse = 0.0;  ///< as typed
    double OrigSpeed = 0.0;
    double HeightOfEye = 0.0; ///< metres
    double AirTemp = 20.0;    ///< degrees Celsius
    double WaterTemp = 20.0;
    double Pressure = 1013.0;     ///< millibars
    double DefaultInstCorr = 0.0; ///< default instrument correction, minutes of arc
    double Probability = 0.95;    ///< of the ellipse and the circle: 0.5, 0.95, 0.99 or 0.999
    bool UseFullRoutine = true;   ///< allow correction of course and speed
    bool OneEstPos = false;       ///< report's intercepts from a single position; no effect on the fix
    bool FindSystErr = true;      ///< look for a systematic error

    // One sight each.
    numeric::Vector ObsTime{0, 0};              ///< 0..n
    numeric::BoundedArray<std::string> ObsBody; ///< body code
    numeric::Vector ObsAltitude;                ///< instrument altitude
    numeric::Vector ObsInstCorr;                ///< instrument correction, degrees

    // Results per sight.
    numeric::Vector ObsLat{0, 0};  ///< 0..n; position of the ship at the sight
    numeric::Vector ObsLong{0, 0}; ///< 0..n
    numeric::Vector ObsGHA;
    numeric::Vector ObsDec;
    numeric::Vector ObsDist;      ///< astronomical units
    numeric::Vector ObsHo;        ///< true altitude
    numeric::Vector ObsHc;        ///< computed altitude
    numeric::Vector ObsIntercept; ///< Ho minus Hc
    numeric::Vector ObsAzimuth;   ///< 0..360
    numeric::Vector ObsWeight;    ///< 0..1, the square root of the biweight

    // Results.
    short ObsCount = 0;
    short GoodObsCount = 0; ///< sights whose bearing adds information
    short NumUnknowns = 2;  ///< 4 after the full routine, 2 after the truncated one
    short IterCount = 0;    ///< 101 when the limit stopped the iteration
    double TrueLat = 0.0;
    double TrueLong = 0.0;
    numeric::Vector StdDev; ///< 1..NumUnknowns: latitude, longitude, course (degrees), speed (knots)
    double EllipseEW = 0.0; ///< semi-axes, degrees
    double EllipseNS = 0.0;
    double CircleRadius = 0.0; ///< degrees
    double SystErr = 0.0;      ///< minutes of arc; positive: altitudes were read too high
};

/// Sizes all per-observation arrays for `n` sights (0 or more) and clears them; sets ObsCount.
void AllocateObservations(SightSession& session, int n);

} // namespace merov::fix
