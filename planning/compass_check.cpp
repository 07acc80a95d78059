#include "planning/compass_check.h"

#include "ephemeris/astro_lib.h"
#include "fix/nautical_lib.h"
#include "numeric/inout_lib.h"
#include "numeric/math_lib.h"

#include <cmath>

namespace merov::planning
{
namespace
{

std::string HourAngleText(double angle)
{
    return numeric::FormatDegMin(angle, "000°00'.0");
}

std::string ErrorText(double error)
{
    return numeric::FormatNumber(error, "+ ##0°.0; - ##0°.0");
}

} // namespace

double InstrumentError(double trueDirection, double reading)
{
    const double error = trueDirection - reading;
    return std::fabs(error) > 180.0 ? error - 360.0 * numeric::Sign(error) : error;
}

CompassErrors CompareReadings(double trueBearing, const CompassReadings& readings)
{
    CompassErrors errors;
    errors.GyroError = InstrumentError(trueBearing, readings.GyroBearing);
    errors.TrueHeading = errors.GyroError + readings.GyroHeading;
    errors.CompassError = InstrumentError(errors.TrueHeading, readings.CompassHeading);
    errors.Deviation = errors.CompassError - readings.Variation;
    return errors;
}

CompassCheck CheckCompasses(std::string_view bodyCode, double instant, double lat, double lon,
                            const CompassReadings& readings)
{
    ephemeris::BodyPosition body;
    ephemeris::ComputeBodyPosition(bodyCode, instant, body);
    CompassCheck check;
    check.GHA = body.GHA;
    check.Declination = body.Declination;
    check.LHA = numeric::Norm360(body.GHA + lon);
    check.TrueBearing = fix::ComputeAzimuth(lat, lon, body.GHA, body.Declination);
    check.Errors = CompareReadings(check.TrueBearing, readings);
    return check;
}

CompassTexts TextsOf(const CompassCheck& check)
{
    return {HourAngleText(check.GHA),
            HourAngleText(check.LHA),
            numeric::FormatLat(check.Declination),
            BearingText(check.TrueBearing),
            ErrorText(check.Errors.GyroError),
            BearingText(check.Errors.TrueHeading),
            ErrorText(check.Errors.CompassError),
            ErrorText(check.Errors.Deviation)};
}

std::string BearingText(double bearing)
{
    return numeric::FormatNumber(bearing, "000°.0");
}

} // namespace merov::planning
