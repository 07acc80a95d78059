#include "cli/arguments.h"
#include "cli/commands.h"
#include "ephemeris/time_lib.h"
#include "fix/fix_summary.h"
#include "fix/observation_file.h"
#include "fix/run_fix.h"
#include "fix/sight_entry.h"
#include "fix/sight_views.h"
#include "numeric/error_trap.h"
#include "numeric/inout_lib.h"
#include "output/exports.h"
#include "sailing/ellipsoid.h"

#include <QCoreApplication>
#include <QFile>

#include <cmath>
#include <map>
#include <memory>
#include <optional>

namespace merov::cli
{
namespace
{

using fix::SightSession;

/// Which positions the sights of the result refer to.
enum class View { Fix, Report, Chart };

struct Words {
    std::string File;
    double Probability = 0.95;
    View SightView = View::Fix;
    bool Truncated = false;
    bool NoSystematic = false;
    bool OnePosition = false;
    std::string Report; ///< files to write; empty for none
    std::string Chart;
};

/// How far a run came: no file, the entries of a file, the sights of its grid, a fix.
enum class Reached { Nothing, Entries, Fix };

QJsonObject JsonSight(const SightSession& s, int i)
{
    return {{"ObsTime", JsonTime(s.ObsTime[i])},
            {"ObsBody", JsonText(s.ObsBody[i])},
            {"ObsAltitude", JsonNumber(s.ObsAltitude[i])},
            {"ObsInstCorr", JsonNumber(s.ObsInstCorr[i])},
            {"ObsGHA", JsonNumber(s.ObsGHA[i])},
            {"ObsDec", JsonNumber(s.ObsDec[i])},
            {"ObsDist", JsonNumber(s.ObsDist[i])},
            {"ObsLat", JsonNumber(s.ObsLat[i])},
            {"ObsLong", JsonNumber(s.ObsLong[i])},
            {"ObsHo", JsonNumber(s.ObsHo[i])},
            {"ObsHc", JsonNumber(s.ObsHc[i])},
            {"ObsIntercept", JsonNumber(s.ObsIntercept[i])},
            {"ObsAzimuth", JsonNumber(s.ObsAzimuth[i])},
            {"ObsWeight", JsonNumber(s.ObsWeight[i])}};
}

/// All keys of the command; null where the run did not come so far.
QJsonObject JsonFix(const SightSession& s, Reached reached)
{
    const auto from = [reached](Reached needed, const QJsonValue& value) {
        return reached >= needed ? value : QJsonValue();
    };
    const auto entry = [&from](const QJsonValue& value) { return from(Reached::Entries, value); };
    const auto result = [&from](const QJsonValue& value) { return from(Reached::Fix, value); };
    QJsonArray deviations;
    QJsonArray sights;
    QJsonObject panels;
    if (reached == Reached::Fix) {
        for (const double deviation : s.StdDev)
            deviations.append(JsonNumber(deviation));
        for (int i = 1; i <= s.ObsCount; ++i)
            sights.append(JsonSight(s, i));
        for (const fix::FixPanel& panel : fix::FixPanels(s))
            panels[QString::fromStdString(panel.Key)] = JsonText(panel.Text);
    }
    return {{"TrueLat", result(JsonNumber(s.TrueLat))},
            {"TrueLong", result(JsonNumber(s.TrueLong))},
            {"StdDev", result(deviations)},
            {"EllipseEW", result(JsonNumber(s.EllipseEW))},
            {"EllipseNS", result(JsonNumber(s.EllipseNS))},
            {"CircleRadius", result(JsonNumber(s.CircleRadius))},
            {"SystErr", result(JsonNumber(s.SystErr))},
            {"IterCount", result(s.IterCount)},
            {"NumUnknowns", result(s.NumUnknowns)},
            {"ObsCount", s.ObsCount > 0 ? entry(s.ObsCount) : QJsonValue()},
            {"GoodObsCount", result(s.GoodObsCount)},
            {"Course", entry(JsonNumber(s.Course))},
            {"Speed", entry(JsonNumber(s.Speed))},
            {"OrigCourse", entry(JsonNumber(s.OrigCourse))},
            {"OrigSpeed", entry(JsonNumber(s.OrigSpeed))},
            {"EstLat", entry(JsonNumber(s.EstLat))},
            {"EstLong", entry(JsonNumber(s.EstLong))},
            {"TimeEstPos", entry(JsonTime(s.TimeEstPos))},
            {"TimeTruePos", entry(JsonTime(s.TimeTruePos))},
            {"Probability", JsonNumber(s.Probability)},
            {"Panels", result(panels)},
            {"Observations", result(sights)}};
}

std::string Aligned(std::string text, std::size_t width, bool right)
{
    const std::size_t length = numeric::CountCharacters(text);
    if (length < width) text.insert(right ? 0 : text.size(), width - length, ' ');
    return text;
}

/// The panels, one a line, and the sights as a table.
std::string DescribedFix(const SightSession& s)
{
    static const std::map<std::string, const char*> labels{{"TimeTruePos", "Time (GMT)"},
                                                           {"MPP", "Position"},
                                                           {"Proba", "Probability"},
                                                           {"Ellipse", "Ellipse"},
                                                           {"Circle", "Circle"},
                                                           {"Course", "Course"},
                                                           {"Speed", "Speed"},
                                                           {"Full", "Routine"},
                                                           {"Iter", "Iterations"},
                                                           {"SystErr", "Systematic error"}};
    std::string text;
    for (const fix::FixPanel& panel : fix::FixPanels(s)) {
        const auto label = labels.find(panel.Key);
        if (panel.Text.empty()) continue;
        text += Aligned(label == labels.end() ? panel.Key : label->second, 18, false) + panel.Text + "\n";
    }
    text += "\nTime (GMT)            Body             Altitude        Ho        Hc  Intercept  Azimuth   Weight\n";
    const auto angle = [](double x) { return Aligned(numeric::FormatDegMin(x, "00°00'.0"), 10, true); };
    for (int i = 1; i <= s.ObsCount; ++i) {
        text += Aligned(ephemeris::FormatDateTime(s.ObsTime[i], "dd mmm yyyy hh:mm:ss"), 22, false) +
                Aligned(s.ObsBody[i], 14, false) +
                Aligned(numeric::FormatDegMin(s.ObsAltitude[i], "00°00'.0"), 11, true) + angle(s.ObsHo[i]) +
                angle(s.ObsHc[i]) +
                Aligned(numeric::FormatNumber(s.ObsIntercept[i] * 60.0, "+##0'.0;-##0'.0"), 11, true) +
                Aligned(numeric::FormatNumber(s.ObsAzimuth[i], "000°.0"), 9, true) +
                Aligned(numeric::FormatNumber(s.ObsWeight[i] * 100.0, "##0.0") + " %", 9, true) + "\n";
    }
    return text;
}

/// Rebuilds the sights as the report or the chart sees them.
void BuildView(View view, SightSession& session, const sailing::EarthModel& earth)
{
    if (view == View::Report) fix::BuildReportView(session, earth.InverseFlattening, earth.SemiMajorAxisNm);
    if (view == View::Chart) fix::BuildChartView(session, earth.InverseFlattening, earth.SemiMajorAxisNm);
}

/// Writes the files that were asked for. @return what went wrong, as a sentence
std::optional<std::string> WriteFiles(const Words& words, const SightSession& session, const sailing::EarthModel& earth)
{
    std::optional<QString> failure;
    if (!words.Report.empty())
        failure = output::WriteReport(QFile::decodeName(words.Report.c_str()), QCoreApplication::applicationDirPath(),
                                      session, earth);
    if (!failure && !words.Chart.empty())
        failure = output::WriteChart(QFile::decodeName(words.Chart.c_str()), session, earth);
    return failure ? std::optional(failure->toStdString()) : std::nullopt;
}

Outcome FixJob(const Words& words)
{
    SightSession session;
    fix::SightEntry entry;
    numeric::LastError journal;
    const sailing::EarthModel& earth = sailing::ActiveEllipsoid();
    session.Probability = words.Probability;

    Outcome outcome;
    bool done = false;
    Reached reached = Reached::Nothing;
    if (fix::LoadObservationFile(words.File, entry, session)) {
        reached = Reached::Entries;
        entry.UseFullRoutine = !words.Truncated;
        entry.FindSystErr = !words.NoSystematic;
        entry.OneEstPos = words.OnePosition;
        if (fix::RunFix(entry, session, earth.InverseFlattening, earth.SemiMajorAxisNm, journal)) {
            reached = Reached::Fix;
            outcome.Text = DescribedFix(session);
            try {
                const std::optional<std::string> failure = WriteFiles(words, session, earth);
                outcome.Error = failure.value_or("");
                done = !failure;
                BuildView(words.SightView, session, earth);
            } catch (const numeric::Fault& fault) {
                outcome.Error = numeric::FaultLine(fault);
                done = false;
            }
        }
    }
    outcome.Status = done ? StatusDone : StatusRefused;
    if (reached == Reached::Fix && words.SightView != View::Fix) outcome.Text = DescribedFix(session);
    outcome.Json = JsonFix(session, reached);
    return outcome;
}

} // namespace

void AddFixCommand(CLI::App& app, const JobTaker& run)
{
    const auto words = std::make_shared<Words>();
    CLI::App* command = AddCommand(app, "fix", "the true position from a file of sights");
    command->add_option("FILE", words->File, "observation file (.obs)")->required();
    command
        ->add_option("--probability", words->Probability,
                     "of the ellipse and the circle: 0.5, 0.95, 0.99 or 0.999 (0.95)")
        ->check(CLI::IsMember(std::vector<double>{0.5, 0.95, 0.99, 0.999}));
    command->add_flag("--truncated", words->Truncated, "leave course and speed as they are");
    command->add_flag("--no-systematic", words->NoSystematic, "look for no systematic error");
    command->add_flag("--one-position", words->OnePosition, "report's intercepts from one estimated position");
    const std::map<std::string, View> views{{"fix", View::Fix}, {"report", View::Report}, {"chart", View::Chart}};
    command
        ->add_option_function<std::string>(
            "--view", [words, views](const std::string& word) { words->SightView = views.at(word); },
            "sights as the fix leaves them, or as the report or the chart sees them (fix)")
        ->check(CLI::IsMember(views))
        ->type_name("VIEW");
    AddOutputFile(*command, "--report", words->Report, {"pdf", "html", "txt"}, "writes the numeric report");
    AddOutputFile(*command, "--chart", words->Chart, {"pdf", "png", "svg"}, "writes the chart");
    AddEllipsoid(*command);
    AddDataFolder(*command);
    command->callback([words, run] { run([words](const BoxLog&) { return FixJob(*words); }); });
}

} // namespace merov::cli
