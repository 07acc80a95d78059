#pragma once

#include "numeric/math_lib.h"

#include <string>
#include <vector>

/// What is true of the sample observations: published sights with their answers, and made sights with
/// the ship that took them. docs/samples.md says the same in words.

namespace merov::samples
{

/// A sight as the log has it. Times are GMT, "YYYY-MM-DD HH:MM:SS".
struct PublishedSight {
    const char* Time;
    const char* Body;
    double Altitude; ///< instrument altitude, degrees
};

/// The weather and the eye of the observer: metres, degrees Celsius of air and water, millibars.
struct Weather {
    double HeightOfEye;
    double AirTemp;
    double WaterTemp;
    double Pressure;
};

/// A sight that a ship took. `Slip` is a blunder in the reading, minutes of arc, positive for too high.
struct MadeSight {
    const char* Time;
    const char* Body;
    double Slip = 0.0;
};

/// What the navigator enters besides the sights.
struct Entries {
    const char* TimeEstPos;
    numeric::GeoPosition EstPos; ///< to a tenth of a minute
    double Course;
    double Speed;
    Weather Sky;
    double InstCorr; ///< of all sights, minutes of arc
};

/// A set of sights from the literature and the answer that it comes with.
struct PublishedSet {
    const char* File;
    const char* TimeTruePos;
    Entries Typed;
    std::vector<PublishedSight> Sights;
    numeric::GeoPosition Answer;
    double Miles; ///< how near a right program comes
};

/// A ship on a rhumb line and the sights that she took.
struct Voyage {
    const char* File;
    const char* TimeTruePos;
    numeric::GeoPosition At; ///< where she is at that time
    double Course;           ///< her true motion over ground, degrees and knots
    double Speed;
    double SystErr; ///< an error of all altitudes that nobody knows of, minutes; positive: read too high
    Entries Typed;
    std::vector<MadeSight> Sights;
};

const std::vector<PublishedSet>& PublishedSets();
const std::vector<Voyage>& Voyages();

/// The voyage whose sights are in `file`.
const Voyage& VoyageOf(const std::string& file);

/// The date-time of "YYYY-MM-DD HH:MM:SS".
double TimeOf(const char* text);

} // namespace merov::samples
