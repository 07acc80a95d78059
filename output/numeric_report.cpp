#include "output/numeric_report.h"

#include "fix/sight_views.h"
#include "numeric/inout_lib.h"
#include "numeric/math_lib.h"
#include "output/program_name.h"
#include "output/report_fonts.h"
#include "output/report_template.h"
#include "output/report_texts.h"
#include "output/sight_block.h"

#include <algorithm>
#include <string>
#include <utility>

namespace merov::output
{
namespace
{

using fix::SightSession;
using numeric::FormatLat;
using numeric::FormatLong;
using numeric::FormatNumber;
using platform::RichText;

constexpr int MarkerCount = 33;

constexpr double BulletIndent = 300.0; // twips

/// How a marker is replaced: in its own format, in blue, or as a list with bullets.
enum class Look { Plain, Blue, List };

/// What stands in the place of a marker.
struct Replacement {
    std::string (*Text)(const SightSession& s);
    Look As = Look::Plain;
};

/// An arc in degrees as minutes.
std::string Minutes(double degrees, const char* pattern)
{
    return FormatNumber(degrees * 60.0, pattern);
}

std::string TrueTime(const SightSession& s)
{
    return ReportTime(s.TimeTruePos);
}

std::string TrueLatText(const SightSession& s)
{
    return FormatLat(s.TrueLat);
}

std::string TrueLongText(const SightSession& s)
{
    return FormatLong(s.TrueLong);
}

/// The longitude that the estimated position was run to, and with what motion where that was corrected.
std::string StartLong(const SightSession& s)
{
    std::string text = FormatLong(s.ObsLong[0]);
    if (TookFullRoutine(s))
        text += " (computed\nwith the original course = " + FormatNumber(s.OrigCourse, "000°.0") +
                " and speed = " + FormatNumber(s.OrigSpeed, "##0.0") + "')";
    return text;
}

/// The longitude that the details start from, and the corrected motion that they are run with.
std::string DetailLong(const SightSession& s)
{
    std::string text = FormatLong(s.EstLong);
    if (TookFullRoutine(s))
        text +=
            ".\nCorrected course " + FormatNumber(s.Course, "000°.0") + " and speed " + FormatNumber(s.Speed, "##0.0'");
    return text;
}

/// The results, in the order of their markers.
const Replacement Results[] = {
    // Position
    {TrueTime},
    {TrueLatText},
    {TrueLongText},
    {[](const SightSession& s) { return FormatNumber(s.Probability * 100.0, "#0.0#"); }, Look::Blue},
    {[](const SightSession& s) { return Minutes(s.EllipseNS, "#0.00"); }},
    {[](const SightSession& s) { return Minutes(s.EllipseEW, "#0.00"); }},
    {[](const SightSession& s) { return Minutes(s.CircleRadius, "#0.00"); }},
    {TrueTime},
    {[](const SightSession& s) { return FormatLat(s.ObsLat[0]); }},
    {StartLong},
    // Observer motion
    {RoutineSentence},
    // Statistics
    {[](const SightSession& s) { return std::to_string(s.IterCount); }},
    {WeightList, Look::List},
    {[](const SightSession& s) { return std::to_string(s.NumUnknowns); }},
    {TrueLatText},
    {[](const SightSession& s) { return Minutes(s.StdDev[1], "##0'.0"); }},
    {TrueLongText},
    {[](const SightSession& s) { return Minutes(s.StdDev[2], "##0'.0"); }},
    {MotionAndError},
    // Conditions of the observations
    {[](const SightSession& s) { return FormatNumber(s.HeightOfEye, "#0.0"); }},
    {[](const SightSession& s) { return FormatNumber(s.HeightOfEye * numeric::FeetPerMetre, "##0.0"); }},
    {[](const SightSession& s) { return FormatNumber(s.AirTemp, "##0"); }},
    {[](const SightSession& s) { return FormatNumber(numeric::CelsiusToFahrenheit(s.AirTemp), "##0"); }},
    {[](const SightSession& s) { return FormatNumber(s.WaterTemp, "##0"); }},
    {[](const SightSession& s) { return FormatNumber(numeric::CelsiusToFahrenheit(s.WaterTemp), "##0"); }},
    {[](const SightSession& s) { return FormatNumber(s.Pressure, "###0"); }},
    {[](const SightSession& s) { return FormatNumber(numeric::MillibarToInHg(s.Pressure), "#0.0#"); }},
};

/// What introduces the details of the sights, in the order of the markers.
const Replacement Details[] = {
    {EstimatedPositionsSentence},
    {[](const SightSession& s) { return ReportTime(s.TimeEstPos); }},
    {[](const SightSession& s) { return FormatLat(s.EstLat); }},
    {DetailLong},
};

static_assert(std::size(Results) + std::size(Details) + 2 == MarkerCount); // and the filler, and the sights

void Replace(RichText& text, const Replacement& replacement, const SightSession& session)
{
    text.Select(text.Find(TemplateMarker), static_cast<int>(TemplateMarker.size()));
    if (replacement.As == Look::Blue) text.SetColour(Qt::blue);
    if (replacement.As == Look::List) {
        text.SetFontName(CodeFont);
        text.SetBullet(BulletIndent);
    }
    text.SetSelectedText(QString::fromStdString(replacement.Text(session)));
    if (replacement.As == Look::Blue) text.SetColour(Qt::black);
}

/// The empty lines that bring the details to the top of a page of their own.
QString Filler(const SightSession& session, int linesPerPage)
{
    return QString(std::max(linesPerPage - ReportLines(session), 0), u'\n');
}

void PutSights(RichText& text, const SightSession& session)
{
    const numeric::Vector distRun = fix::ObsDistRun(session);
    for (int i = 1; i <= session.ObsCount; ++i)
        PutSightBlock(text, session, i, distRun[i]);
}

void PutEnd(RichText& text)
{
    text.SetFontName(LetterFont);
    text.SetBold(true);
    text.SetItalic(true);
    text.SetParagraphAlignment(Qt::AlignHCenter);
    text.SetSelectedText("End of astronomic position by " + QString::fromUtf8(ProgramName));
}

} // namespace

std::optional<QString> BuildNumericReport(RichText& text, const QString& templateFile, SightSession& session,
                                          const sailing::EarthModel& earth, int linesPerPage)
{
    RichText report;
    if (std::optional<QString> wrong = LoadTemplate(report, templateFile, MarkerCount)) return wrong;
    for (const Replacement& result : Results)
        Replace(report, result, session);
    report.ReplaceMarker(TemplateMarker, Filler(session, linesPerPage));

    fix::BuildReportView(session, earth.InverseFlattening, earth.SemiMajorAxisNm);
    for (const Replacement& detail : Details)
        Replace(report, detail, session);
    report.ReplaceMarker(TemplateMarker, QString());
    PutSights(report, session);
    PutEnd(report);
    text = std::move(report);
    return {};
}

} // namespace merov::output
