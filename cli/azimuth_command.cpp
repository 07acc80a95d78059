#include "cli/arguments.h"
#include "cli/commands.h"
#include "ephemeris/astro_lib.h"
#include "numeric/error_trap.h"
#include "planning/compass_check.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace merov::cli
{
namespace
{

struct AzimuthWords {
    std::string Body;
    double Instant = 0.0;
    double Lat = 0.0;
    double Long = 0.0;
    std::optional<double> GyroBearing;
    std::optional<double> GyroHeading;
    std::optional<double> CompassHeading;
    std::optional<double> Variation;
};

/// "True bearing          243°.7"
std::string ResultLine(std::string label, const std::string& value)
{
    label.resize(std::max<std::size_t>(label.size(), 20), ' ');
    return label + value + "\n";
}

std::string TextOf(const planning::CompassCheck& check)
{
    const planning::CompassTexts texts = planning::TextsOf(check);
    return ResultLine("GHA", texts.GHA) + ResultLine("LHA", texts.LHA) + ResultLine("d", texts.Declination) +
           ResultLine("True bearing", texts.TrueBearing) + ResultLine("Gyro error", texts.GyroError) +
           ResultLine("True heading", texts.TrueHeading) + ResultLine("Compass error", texts.CompassError) +
           ResultLine("Magnetic deviation", texts.Deviation);
}

QJsonObject JsonCheck(const planning::CompassCheck& check)
{
    return {{"GHA", JsonNumber(check.GHA)},
            {"LHA", JsonNumber(check.LHA)},
            {"Declination", JsonNumber(check.Declination)},
            {"TrueBearing", JsonNumber(check.TrueBearing)},
            {"GyroError", JsonNumber(check.Errors.GyroError)},
            {"TrueHeading", JsonNumber(check.Errors.TrueHeading)},
            {"CompassError", JsonNumber(check.Errors.CompassError)},
            {"Deviation", JsonNumber(check.Errors.Deviation)}};
}

Outcome AzimuthJob(const AzimuthWords& words, const BoxLog& log)
{
    Outcome outcome;
    if (!ephemeris::IsBodyCode(words.Body)) {
        outcome.Error = "\"" + words.Body + "\" is no body code.";
    } else {
        const planning::CompassReadings readings{words.GyroBearing.value_or(0.0), words.GyroHeading.value_or(0.0),
                                                 words.CompassHeading.value_or(0.0), words.Variation.value_or(0.0)};
        try {
            const planning::CompassCheck check =
                planning::CheckCompasses(words.Body, words.Instant, words.Lat, words.Long, readings);
            outcome.Text = TextOf(check);
            outcome.Json = JsonCheck(check);
        } catch (const numeric::Fault& fault) {
            outcome.Error = numeric::FaultLine(fault);
        }
    }
    // Without its series a planet has no place of its own: told by the box, and no success.
    if (!outcome.Error.empty() || !log.Boxes().empty()) outcome.Status = StatusRefused;
    return outcome;
}

} // namespace

void AddAzimuthCommand(CLI::App& app, const JobTaker& run)
{
    const auto words = std::make_shared<AzimuthWords>();
    CLI::App* command = AddCommand(app, "azimuth", "true bearing of a body, errors of gyro and magnetic compass");
    command->add_option("BODY", words->Body, "body code such as VEGA, MARS, SUNLOW, MOONUPP")->required();
    AddTime(*command, "TIME", words->Instant, "GMT");
    AddLatitude(*command, "LAT", words->Lat);
    AddLongitude(*command, "LONG", words->Long);
    const std::string reading = "a direction in degrees, 0 to 360";
    AddBounded(*command, "--gyro-bearing", words->GyroBearing, "of the body, degrees (0)", reading, 0.0, 360.0);
    AddBounded(*command, "--gyro-heading", words->GyroHeading, "degrees (0)", reading, 0.0, 360.0);
    AddBounded(*command, "--compass-heading", words->CompassHeading, "of the magnetic compass, degrees (0)", reading,
               0.0, 360.0);
    AddBounded(*command, "--variation", words->Variation, "magnetic variation, degrees, east positive (0)",
               "a variation in degrees, -360 to 360", -360.0, 360.0);
    AddDataFolder(*command);
    command->callback([words, run] { run([words](const BoxLog& log) { return AzimuthJob(*words, log); }); });
}

} // namespace merov::cli
