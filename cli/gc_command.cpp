#include "cli/arguments.h"
#include "cli/commands.h"
#include "numeric/error_trap.h"
#include "numeric/inout_lib.h"
#include "numeric/message_box.h"
#include "output/exports.h"
#include "output/file_output.h"
#include "output/gpx_route.h"
#include "sailing/voyage.h"

#include <QCoreApplication>
#include <QFile>

#include <memory>
#include <optional>

namespace merov::cli
{
namespace
{

using sailing::Voyage;

struct Words {
    sailing::VoyageInput Input;
    std::string Report; ///< files to write; empty for none
    std::string Gpx;
};

/// The boxes that the page of the great circle shows before it computes. @return false after one
bool IsComplete(const sailing::VoyageInput& input)
{
    if (input.LongInterval && *input.LongInterval == 0.0) {
        numeric::ShowWarning(" Error in input data", {"You entered a longitude interval of 00°00'..."});
        return false;
    }
    if (input.DepLat == input.ArrLat && input.DepLong == input.ArrLong) {
        numeric::ShowWarning(" Departure = Arrival ?", {"Same departure and arrival positions. Please correct."});
        return false;
    }
    return true;
}

QJsonObject JsonComposite(const sailing::CompositeTrack& track)
{
    if (!track.IsComposite) return {{"IsComposite", false}};
    QJsonArray legs;
    for (const double distance : track.LegDist)
        legs.append(JsonNumber(distance));
    return {{"IsComposite", true},
            {"LimitLat", JsonNumber(track.LimitLat)},
            {"TouchLong1", JsonNumber(track.TouchLong1)},
            {"TouchLong2", JsonNumber(track.TouchLong2)},
            {"LegDist", legs},
            {"LimitCourse", JsonNumber(track.LimitCourse)}};
}

QJsonArray JsonWaypoints(const std::vector<sailing::Waypoint>& waypoints)
{
    QJsonArray rows;
    for (const sailing::Waypoint& point : waypoints)
        rows.append(QJsonObject{{"Lat", JsonNumber(point.Lat)},
                                {"Long", JsonNumber(point.Long)},
                                {"Course", JsonNumber(point.Course)},
                                {"Distance", JsonNumber(point.Distance)},
                                {"Run", JsonNumber(point.Run)},
                                {"ToGo", JsonNumber(point.ToGo)}});
    return rows;
}

/// All keys of the command; null where the calculation did not come so far.
QJsonObject JsonVoyage(const std::optional<Voyage>& voyage)
{
    const Voyage& v = voyage ? *voyage : Voyage();
    const bool planned = voyage && v.Refusal == sailing::VoyageRefusal::None;
    const auto vertex = [&voyage](double value) { return voyage ? JsonNumber(value) : QJsonValue(); };
    const auto result = [planned](const QJsonValue& value) { return planned ? value : QJsonValue(); };
    const auto number = [&result](double value) { return result(JsonNumber(value)); };
    return {{"VertexLat", vertex(v.Track.VertexLat)},
            {"VertexLong", vertex(v.Track.VertexLong)},
            {"CotVertex", vertex(v.Track.CotVertex)},
            {"VertexDistance", vertex(v.Track.VertexDistance)},
            {"Total", number(v.Total)},
            {"Sum", v.Input.LongInterval ? number(v.Sum) : QJsonValue()},
            {"Period", number(v.Period)},
            {"DepartureCourse", number(v.DepartureCourse)},
            {"ArrivalCourse", number(v.ArrivalCourse)},
            {"RhumbCourse", number(v.RhumbCourse)},
            {"RhumbDistance", number(v.RhumbDistance)},
            {"Composite", result(JsonComposite(v.Composite))},
            {"Waypoints", result(JsonWaypoints(v.Waypoints))}};
}

std::string Position(double lat, double longitude)
{
    return numeric::FormatLat(lat) + "  " + numeric::FormatLong(longitude);
}

std::string DescribedWaypoints(const std::vector<sailing::Waypoint>& waypoints)
{
    if (waypoints.empty()) return "";
    std::string text = "\nLatitude    Longitude     Course   Distance    Run  To go\n";
    for (const sailing::Waypoint& point : waypoints)
        text += Position(point.Lat, point.Long) + "  " + numeric::FormatNumber(point.Course, "000°.0") + "  " +
                numeric::FormatNumber(point.Distance, "0000.0") + "  " + numeric::FormatNumber(point.Run, "00000.0") +
                "  " + numeric::FormatNumber(point.ToGo, "00000.0") + "\n";
    return text;
}

std::string Described(const Voyage& v)
{
    const auto miles = [](double distance) { return numeric::FormatNumber(distance, "##0.0") + " miles"; };
    const auto course = [](double angle) { return numeric::FormatNumber(angle, "000°.0"); };
    std::string text = "Departure        " + Position(v.Input.DepLat, v.Input.DepLong) + "\nArrival          " +
                       Position(v.Input.ArrLat, v.Input.ArrLong) + "\nVertex           " +
                       Position(v.Track.VertexLat, v.Track.VertexLong) +
                       (v.Track.VertexDistance < 0.0 ? ", outside the track" : ", " + miles(v.Track.VertexDistance)) +
                       "\n";
    if (v.Refusal != sailing::VoyageRefusal::None) return text;
    if (v.Composite.IsComposite)
        text += "Along the limit  " + Position(v.Composite.LimitLat, v.Composite.TouchLong1) + " to " +
                numeric::FormatLong(v.Composite.TouchLong2) + "\nLegs             " + miles(v.Composite.LegDist[0]) +
                ", " + miles(v.Composite.LegDist[1]) + ", " + miles(v.Composite.LegDist[2]) + "\n";
    text += "Distance         " + miles(v.Total) + "\n";
    if (v.Input.LongInterval) text += "Sum of lines     " + miles(v.Sum) + "\n";
    return text + "Courses          " + course(v.DepartureCourse) + ", at the arrival " + course(v.ArrivalCourse) +
           "\nRhumb line       " + course(v.RhumbCourse) + ", " + miles(v.RhumbDistance) + "\n" +
           DescribedWaypoints(v.Waypoints);
}

/// Writes the files that were asked for. @return what went wrong, as a sentence
std::optional<QString> WriteFiles(const Words& words, const Voyage& voyage, const sailing::EarthModel& earth)
{
    std::optional<QString> failure;
    if (!words.Report.empty())
        failure = output::WriteSailingReport(QFile::decodeName(words.Report.c_str()),
                                             QCoreApplication::applicationDirPath(), voyage, earth);
    if (!failure && !words.Gpx.empty())
        failure = output::WriteBytes(QFile::decodeName(words.Gpx.c_str()),
                                     output::GpxRoute("Great circle by Merov", voyage.Waypoints));
    return failure;
}

/// A longitude of 180 to 360 as the west longitude that it is.
double WestNegative(double longitude)
{
    return longitude > 180.0 ? longitude - 360.0 : longitude;
}

Outcome GcJob(const Words& words)
{
    Outcome outcome;
    outcome.Status = StatusRefused;
    if (!IsComplete(words.Input)) {
        outcome.Json = JsonVoyage({});
        return outcome;
    }
    const sailing::EarthModel& earth = sailing::ActiveEllipsoid();
    numeric::LastError journal;
    sailing::VoyageInput input = words.Input;
    input.DepLong = WestNegative(input.DepLong);
    input.ArrLong = WestNegative(input.ArrLong);
    const Voyage voyage = sailing::PlanVoyage(input, earth, journal);
    outcome.Json = JsonVoyage(voyage);
    outcome.Text = Described(voyage);
    if (voyage.Refusal != sailing::VoyageRefusal::None) return outcome;
    const std::optional<QString> failure = WriteFiles(words, voyage, earth);
    outcome.Error = failure.value_or(QString()).toStdString();
    outcome.Status = failure ? StatusRefused : StatusDone;
    return outcome;
}

} // namespace

void AddGcCommand(CLI::App& app, const JobTaker& run)
{
    const auto words = std::make_shared<Words>();
    CLI::App* command =
        AddCommand(app, "gc", "the great circle between two positions, its waypoints and composite track");
    AddLatitude(*command, "LAT1", words->Input.DepLat);
    AddLongitude(*command, "LONG1", words->Input.DepLong);
    AddLatitude(*command, "LAT2", words->Input.ArrLat);
    AddLongitude(*command, "LONG2", words->Input.ArrLong);
    AddBounded(*command, "--max-lat", words->Input.MaxLat, "latitude not to be exceeded, in either hemisphere",
               "a latitude, -90 to 90", -90.0, 90.0);
    CLI::Option* interval =
        AddBounded(*command, "--interval", words->Input.LongInterval, "between waypoints, degrees of longitude",
                   "an interval of longitude, 0 to 180", 0.0, 180.0);
    AddOutputFile(*command, "--report", words->Report, {"pdf", "html", "txt"}, "writes the sailing report");
    AddOutputFile(*command, "--gpx", words->Gpx, {"gpx"}, "writes the waypoints as a route for chart plotters")
        ->needs(interval);
    AddEllipsoid(*command);
    command->callback([words, run] { run([words](const BoxLog&) { return GcJob(*words); }); });
}

} // namespace merov::cli
