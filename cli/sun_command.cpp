#include "cli/arguments.h"
#include "cli/commands.h"
#include "ephemeris/sun_events.h"
#include "ephemeris/time_lib.h"
#include "numeric/error_trap.h"
#include "numeric/inout_lib.h"

#include <memory>

namespace merov::cli
{
namespace
{

constexpr std::array<const char*, 9> EventNames{
    "Morning, Sun at -9°", "Morning, Sun at -3°", "Sunrise", "Sun's centre at 0°",
    "Meridian passage",    "Sun's centre at 0°",  "Sunset",  "Evening, Sun at -3°",
    "Evening, Sun at -9°"};

struct Words {
    double Latitude = 0.0;
    double Longitude = 0.0;
    double Date = 0.0;
    double HeightOfEye = 0.0;
};

Outcome SunJob(const Words& words)
{
    Outcome outcome;
    ephemeris::SunEventTimes events{}; // a search that finds nothing leaves 0
    bool rises = false;
    try {
        rises = ephemeris::ComputeSunEvents(words.Latitude, words.Longitude, words.Date, words.HeightOfEye, events);
    } catch (const numeric::Fault& fault) {
        outcome.Error = numeric::FaultLine(fault);
        outcome.Status = StatusRefused;
    }
    outcome.Json["SunEvents"] = QJsonValue();
    if (!rises) {
        if (outcome.Error.empty()) outcome.Text = "The Sun neither rises nor sets on this day.\n";
        return outcome;
    }
    QJsonArray times;
    for (std::size_t i = 0; i < events.size(); ++i) {
        const bool found = events[i] != 0.0;
        times.append(found ? JsonTime(events[i]) : QJsonValue());
        std::string name = EventNames[i];
        name.append(24 - numeric::CountCharacters(name), ' ');
        outcome.Text += name + (found ? ephemeris::FormatIsoDateTime(events[i]) + " GMT" : "-") + "\n";
    }
    outcome.Json["SunEvents"] = times;
    return outcome;
}

} // namespace

void AddSunCommand(CLI::App& app, const JobTaker& run)
{
    const auto words = std::make_shared<Words>();
    CLI::App* sun = AddCommand(app, "sun", "twilight, rise, noon and set of the Sun");
    AddLatitude(*sun, "LAT", words->Latitude);
    AddLongitude(*sun, "LONG", words->Longitude);
    AddDate(*sun, words->Date);
    AddHeight(*sun, words->HeightOfEye);
    AddDataFolder(*sun);
    sun->callback([words, run] { run([words](const BoxLog&) { return SunJob(*words); }); });
}

} // namespace merov::cli
