#include "cli/arguments.h"
#include "cli/commands.h"
#include "ephemeris/time_lib.h"
#include "numeric/error_trap.h"
#include "numeric/inout_lib.h"
#include "planning/star_list.h"

#include <algorithm>
#include <memory>

namespace merov::cli
{
namespace
{

struct Words {
    planning::Observer Place;
    double Instant = 0.0;
    bool All = false;
};

/// The wizard's list, or all that is above the horizon, as the table shows it.
std::vector<planning::ListedBody> BodiesFor(const Words& words)
{
    if (words.All) {
        std::vector<planning::ListedBody> bodies = planning::VisibleBodies(words.Place, words.Instant);
        planning::SortByAzimuth(bodies);
        return bodies;
    }
    planning::StarList list;
    list.Build(words.Place, words.Instant);
    return {list.Rows().begin(), list.Rows().end()};
}

/// "SIRIUS         -1.6     183°    32°14'  picked"
std::string BodyLine(const planning::ListedBody& body)
{
    const planning::StarRow row = planning::TableRow(body);
    const auto text = [&](planning::StarColumn column, std::size_t width) {
        const std::string& cell = row[static_cast<std::size_t>(column)];
        return std::string(width - std::min(width, numeric::CountCharacters(cell)), ' ') + cell;
    };
    std::string line(body.Body);
    line.resize(std::max<std::size_t>(line.size(), 12), ' ');
    line += text(planning::StarColumn::Magnitude, 7) + text(planning::StarColumn::Azimuth, 9) +
            text(planning::StarColumn::Altitude, 10);
    return line + (body.Picked ? "  picked\n" : "\n");
}

Outcome StarsJob(const Words& words)
{
    Outcome outcome;
    QJsonArray rows;
    try {
        outcome.Text = ephemeris::FormatIsoDateTime(words.Instant) + " GMT\nBody          Magn.  Azimuth  Altitude\n";
        for (const planning::ListedBody& body : BodiesFor(words)) {
            rows.append(QJsonObject{{"Body", JsonText(std::string(body.Body))},
                                    {"Magnitude", JsonNumber(body.Magnitude)},
                                    {"Azimuth", JsonNumber(body.Azimuth)},
                                    {"Altitude", JsonNumber(body.Altitude)},
                                    {"Picked", body.Picked}});
            outcome.Text += BodyLine(body);
        }
    } catch (const numeric::Fault& fault) {
        outcome.Error = numeric::FaultLine(fault);
        outcome.Status = StatusRefused;
    }
    outcome.Json["Rows"] = rows;
    return outcome;
}

} // namespace

void AddStarsCommand(CLI::App& app, const JobTaker& run)
{
    const auto words = std::make_shared<Words>();
    CLI::App* stars = AddCommand(app, "stars", "bodies above the horizon, and those that are best for a fix");
    AddLatitude(*stars, "LAT", words->Place.Lat);
    AddLongitude(*stars, "LONG", words->Place.Long);
    AddTime(*stars, "TIME", words->Instant, "GMT");
    AddHeight(*stars, words->Place.Height);
    stars->add_flag("--all", words->All, "all bodies, the Sun too, by azimuth, none picked");
    AddDataFolder(*stars);
    stars->callback([words, run] { run([words](const BoxLog&) { return StarsJob(*words); }); });
}

} // namespace merov::cli
