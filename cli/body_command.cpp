#include "cli/arguments.h"
#include "cli/commands.h"
#include "ephemeris/astro_lib.h"
#include "ephemeris/magnitudes.h"
#include "ephemeris/time_lib.h"
#include "numeric/error_trap.h"
#include "numeric/inout_lib.h"

#include <limits>
#include <memory>

namespace merov::cli
{
namespace
{

constexpr double Unset = std::numeric_limits<double>::quiet_NaN();

/// What the ephemeris says of one body; what it leaves unset is no finite number.
struct Place {
    ephemeris::BodyPosition Position{Unset, Unset, Unset, Unset, Unset, Unset};
    double Magnitude = Unset;
};

/// The place of a body; a fault is told in `error` and leaves the rest unset.
Place PlaceOf(std::string_view code, double instant, std::string& error)
{
    Place place;
    try {
        ephemeris::ComputeBodyPosition(code, instant, place.Position);
        place.Magnitude = ephemeris::ComputeMagnitude(code, instant);
    } catch (const numeric::Fault& fault) {
        error = std::string(code) + ": " + numeric::FaultLine(fault);
    }
    return place;
}

QJsonObject JsonPlace(const Place& place)
{
    const ephemeris::BodyPosition& position = place.Position;
    return {{"GHA", JsonNumber(position.GHA)},
            {"Declination", JsonNumber(position.Declination)},
            {"Distance", JsonNumber(position.Distance)},
            {"HelioDistance", JsonNumber(position.HelioDistance)},
            {"EclLatitude", JsonNumber(position.EclLatitude)},
            {"EclLongitude", JsonNumber(position.EclLongitude)},
            {"Magnitude", JsonNumber(place.Magnitude)}};
}

/// "VEGA          180°44'.2  38°47'.1 N  mag  0.1"
std::string PlaceLine(std::string_view code, const Place& place)
{
    std::string name(code);
    name.resize(std::max<std::size_t>(name.size(), 12), ' ');
    std::string magnitude = numeric::FormatNumber(place.Magnitude, "#0.0");
    magnitude.insert(0, magnitude.size() < 5 ? 5 - magnitude.size() : 0, ' ');
    return name + "  GHA " + numeric::FormatDegMin(place.Position.GHA, "000°00'.0") + "  Dec " +
           numeric::FormatLat(place.Position.Declination) + "  mag " + magnitude + "\n";
}

Outcome BodyJob(const std::string& code, double instant, const BoxLog& log)
{
    Outcome outcome;
    Place place;
    if (!ephemeris::IsBodyCode(code)) {
        outcome.Error = "\"" + code + "\" is no body code.";
    } else {
        place = PlaceOf(code, instant, outcome.Error);
        outcome.Text = ephemeris::FormatIsoDateTime(instant) + " GMT\n" + PlaceLine(code, place);
    }
    // Without its series a planet has no place of its own: told by the box, and no success.
    if (!outcome.Error.empty() || !log.Boxes().empty()) outcome.Status = StatusRefused;
    outcome.Json = JsonPlace(place);
    return outcome;
}

Outcome BodiesJob(double instant)
{
    Outcome outcome;
    QJsonArray bodies;
    outcome.Text = ephemeris::FormatIsoDateTime(instant) + " GMT\n";
    for (const std::string_view code : ephemeris::BodyCodes()) {
        const Place place = PlaceOf(code, instant, outcome.Error);
        QJsonObject object = JsonPlace(place);
        object["Code"] = JsonText(std::string(code));
        bodies.append(object);
        outcome.Text += PlaceLine(code, place);
    }
    outcome.Json["Bodies"] = bodies;
    return outcome;
}

} // namespace

void AddBodyCommands(CLI::App& app, const JobTaker& run)
{
    struct Words {
        std::string Code;
        double Instant = 0.0;
    };
    const auto words = std::make_shared<Words>();
    CLI::App* body = AddCommand(app, "body", "apparent place and magnitude of one body");
    body->add_option("CODE", words->Code, "body code such as VEGA, MARS, SUNLOW, MOONUPP")->required();
    AddTime(*body, "TIME", words->Instant, "GMT");
    AddDataFolder(*body);
    body->callback(
        [words, run] { run([words](const BoxLog& log) { return BodyJob(words->Code, words->Instant, log); }); });

    CLI::App* bodies = AddCommand(app, "bodies", "apparent places and magnitudes of all bodies");
    AddTime(*bodies, "TIME", words->Instant, "GMT");
    AddDataFolder(*bodies);
    bodies->callback([words, run] { run([words](const BoxLog&) { return BodiesJob(words->Instant); }); });
}

} // namespace merov::cli
