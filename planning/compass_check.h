#pragma once

#include <string>
#include <string_view>

/// The check of a ship's compasses against a heavenly body.
///
/// Angles are degrees, bearings and headings clockwise from north. Errors are positive when the true value
/// is greater than the instrument's.

namespace merov::planning
{

/// What the observer reads. What isn't given counts as 0.
struct CompassReadings {
    double GyroBearing = 0.0;    ///< of the body, 0..360
    double GyroHeading = 0.0;    ///< 0..360
    double CompassHeading = 0.0; ///< 0..360, of the magnetic compass
    double Variation = 0.0;      ///< magnetic variation, -360..360, east positive
};

/// What becomes of the readings once the true bearing is known.
struct CompassErrors {
    double GyroError = 0.0;    ///< -180..180
    double TrueHeading = 0.0;  ///< gyro heading with its error, not reduced: 362 for 359 and 3
    double CompassError = 0.0; ///< -180..180 where the true heading lies within 0..360
    double Deviation = 0.0;    ///< compass error without the variation, not reduced
};

/// The whole check.
struct CompassCheck {
    double GHA = 0.0;         ///< 0 up to 360
    double LHA = 0.0;         ///< 0 up to 360
    double Declination = 0.0; ///< north positive
    double TrueBearing = 0.0; ///< 0 up to 360
    CompassErrors Errors;
};

/// The texts of a check: "180°44'.2" of the hour angles, "38°47'.1 N" of the declination, "062°.0" of
/// bearing and heading, "+ 2°.0" or " - 2°.0" of errors and deviation.
struct CompassTexts {
    std::string GHA;
    std::string LHA;
    std::string Declination;
    std::string TrueBearing;
    std::string GyroError;
    std::string TrueHeading;
    std::string CompassError;
    std::string Deviation;
};

/// `trueDirection` less what an instrument shows. A difference of more than half a turn is the other way
/// round: 360 is taken off it, or added, once. One of 180 stays.
double InstrumentError(double trueDirection, double reading);

/// The errors of gyro and compass, and the deviation.
/// @param trueBearing  of the body whose bearing was read, 0..360
CompassErrors CompareReadings(double trueBearing, const CompassReadings& readings);

/// Computes the bearing of a body and compares the readings with it. Fault 11 as fix::ComputeAzimuth.
/// @param bodyCode   one of the 66 codes
/// @param instant    date-time, GMT
/// @param lat, lon   position, -90..90 and -180..360, north and east positive
CompassCheck CheckCompasses(std::string_view bodyCode, double instant, double lat, double lon,
                            const CompassReadings& readings);

CompassTexts TextsOf(const CompassCheck& check);

/// The text of a bearing or of a variation without its sign: "062°.0".
std::string BearingText(double bearing);

} // namespace merov::planning
