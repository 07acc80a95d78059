#include "cli/arguments.h"
#include "cli/commands.h"
#include "numeric/error_trap.h"
#include "numeric/inout_lib.h"
#include "numeric/math_lib.h"
#include "sailing/ellipsoid.h"
#include "sailing/rhumb_line.h"
#include "sailing/rhumb_solutions.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace merov::cli
{
namespace
{

constexpr double Unset = std::numeric_limits<double>::quiet_NaN();

/// The quantities of a rhumb line problem; what a problem asks for is unset until it is solved.
struct RhumbLine {
    double Lat1 = Unset;
    double Long1 = Unset;
    double Lat2 = Unset;
    double Long2 = Unset;
    double Course = Unset;
    double Distance = Unset;
};

using Solution = std::function<void(RhumbLine&, double r, double a)>;

std::string Shown(double value, const std::function<std::string(double)>& format)
{
    return std::isfinite(value) ? format(value) : "-";
}

std::string Described(const RhumbLine& line, bool sphere)
{
    const auto position = [](double lat, double lon) {
        return Shown(lat, numeric::FormatLat) + "  " + Shown(lon, numeric::FormatLong);
    };
    const auto pattern = [](const char* form) {
        return [form](double value) { return numeric::FormatNumber(value, form); };
    };
    return "Departure  " + position(line.Lat1, line.Long1) + "\nArrival    " + position(line.Lat2, line.Long2) +
           "\nCourse     " + Shown(line.Course, pattern("000°.0")) + "\nDistance   " +
           Shown(line.Distance, pattern("##0.00")) + (sphere ? " geographical" : " nautical") + " miles\n";
}

/// Solves a problem with the ellipsoid in force. A box of refusal or failure, and a fault, refuse it.
Outcome Solve(RhumbLine line, const Solution& solution, const BoxLog& log)
{
    const sailing::EarthModel& earth = sailing::ActiveEllipsoid();
    Outcome outcome;
    try {
        solution(line, earth.InverseFlattening, earth.SemiMajorAxisNm);
    } catch (const numeric::Fault& fault) {
        outcome.Error = numeric::FaultLine(fault);
    }
    const bool refused = std::any_of(log.Boxes().begin(), log.Boxes().end(),
                                     [](const numeric::Box& box) { return box.Title.starts_with(" Error"); });
    outcome.Status = refused || !outcome.Error.empty() ? StatusRefused : StatusDone;
    outcome.Json = {{"Lat1", JsonNumber(line.Lat1)},     {"Long1", JsonNumber(line.Long1)},
                    {"Lat2", JsonNumber(line.Lat2)},     {"Long2", JsonNumber(line.Long2)},
                    {"Course", JsonNumber(line.Course)}, {"Distance", JsonNumber(line.Distance)}};
    outcome.Text = Described(line, sailing::IsSphere(earth.InverseFlattening));
    return outcome;
}

/// Declares one problem: `words` adds its arguments, bound to the line handed over.
void AddProblem(CLI::App& rhumb, const JobTaker& run, const std::string& name, const std::string& description,
                const std::function<void(CLI::App&, RhumbLine&)>& words, Solution solution)
{
    const auto line = std::make_shared<RhumbLine>();
    CLI::App* command = AddCommand(rhumb, name, description);
    AddLatitude(*command, "LAT1", line->Lat1);
    AddLongitude(*command, "LONG1", line->Long1);
    words(*command, *line);
    AddEllipsoid(*command);
    command->callback([line, run, solution = std::move(solution)] {
        run([line, solution](const BoxLog& log) { return Solve(*line, solution, log); });
    });
}

} // namespace

void AddRhumbCommand(CLI::App& app, const JobTaker& run)
{
    CLI::App* rhumb = AddCommand(app, "rhumb", "rhumb lines on the chosen ellipsoid");
    rhumb->require_subcommand(1);
    AddProblem(
        *rhumb, run, "direct", "the arrival from a departure, a course and a distance",
        [](CLI::App& command, RhumbLine& line) {
            AddCourse(command, line.Course);
            AddNumber(command, "DISTANCE", line.Distance, "miles; negative runs backwards");
        },
        [](RhumbLine& line, double r, double a) {
            sailing::RhumbLineDirect(line.Lat1, line.Long1, line.Course, line.Distance, line.Lat2, line.Long2, r, a);
        });
    AddProblem(
        *rhumb, run, "inverse", "course and distance between two positions",
        [](CLI::App& command, RhumbLine& line) {
            AddLatitude(command, "LAT2", line.Lat2);
            AddLongitude(command, "LONG2", line.Long2);
        },
        [](RhumbLine& line, double r, double a) {
            sailing::RhumbLineInverse(line.Lat1, line.Long1, line.Lat2, line.Long2, line.Course, line.Distance, r, a);
        });
    AddProblem(
        *rhumb, run, "to-latitude", "where a course reaches a latitude",
        [](CLI::App& command, RhumbLine& line) {
            AddCourse(command, line.Course);
            AddLatitude(command, "LAT2", line.Lat2);
        },
        [](RhumbLine& line, double r, double a) {
            sailing::RhumbLineToLatitude(line.Lat1, line.Long1, line.Course, line.Lat2, line.Long2, line.Distance, r,
                                         a);
        });
    AddProblem(
        *rhumb, run, "to-longitude", "where a course reaches a longitude",
        [](CLI::App& command, RhumbLine& line) {
            AddCourse(command, line.Course);
            AddLongitude(command, "LONG2", line.Long2);
            line.Distance = 0.0;
            AddOptionalNumber(command, "DISTANCE", line.Distance, "miles; the first trial (0)");
        },
        [](RhumbLine& line, double r, double a) {
            sailing::RhumbLineToLongitude(line.Lat1, line.Long1, line.Course, line.Long2, line.Lat2, line.Distance, r,
                                          a);
        });
}

} // namespace merov::cli
