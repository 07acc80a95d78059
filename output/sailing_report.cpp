#include "output/sailing_report.h"

#include "numeric/inout_lib.h"
#include "output/program_name.h"
#include "output/report_fonts.h"
#include "output/report_template.h"

#include <cassert>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace merov::output
{
namespace
{

using numeric::FormatLat;
using numeric::FormatLong;
using numeric::FormatNumber;
using platform::RichText;
using sailing::Voyage;

constexpr int MarkerCount = 11;

constexpr double BulletIndent = 300.0; // twips
constexpr double WaypointSize = 10.0;  // points
constexpr double ClosingSize = 11.0;   // points

constexpr const char* CoursePattern = "000°.0";

std::string CourseText(double course)
{
    return FormatNumber(course, CoursePattern);
}

/// Replaces markers in turn, and puts in the text that has no marker.
class VoyageText
{
public:
    VoyageText(RichText& text, const Voyage& voyage, bool sphere)
        : text_(text), voyage_(voyage), miles_(sphere ? " geographical miles" : " nautical miles")
    {
    }

    void PutHead(const QString& ellipsoidName);
    void PutCompositeTrack();
    void PutDistances();
    void PutWaypoints();
    void PutClosing();

private:
    void NextMarker() { text_.Select(text_.Find(TemplateMarker), 1); }
    void Put(const std::string& text) { text_.SetSelectedText(QString::fromStdString(text)); }
    void PutLeg(const char* heading, const std::string& from, const std::string& to, const std::string& distance);
    std::string Distance(double miles) const { return SailingDistance(miles) + miles_; }
    std::string SumSentences() const;
    std::string TotalSentences() const;

    RichText& text_;
    const Voyage& voyage_;
    const std::string miles_; ///< the unit behind a distance
};

void VoyageText::PutHead(const QString& ellipsoidName)
{
    const sailing::VoyageInput& in = voyage_.Input;
    const sailing::Vertex& vertex = voyage_.Track;
    const std::string vertexSentence =
        vertex.VertexDistance == -1.0
            ? "The Vertex is outside the track."
            : "The Vertex distance from the departure point is " + Distance(vertex.VertexDistance) + ".";
    for (const std::string& value :
         {ellipsoidName.toStdString(), FormatLat(in.DepLat), FormatLong(in.DepLong), FormatLat(in.ArrLat),
          FormatLong(in.ArrLong), FormatLat(vertex.VertexLat), FormatLong(vertex.VertexLong), vertexSentence}) {
        NextMarker();
        Put(value);
    }
}

/// A part of the composite track: a heading, and its ends and length as a list with bullets.
void VoyageText::PutLeg(const char* heading, const std::string& from, const std::string& to,
                        const std::string& distance)
{
    Put(std::string(heading) + "\n");
    text_.SetBullet(BulletIndent);
    Put(from + " and\n" + to + "\nwith a distance of " + distance + "\n");
    text_.EndBullet();
}

void VoyageText::PutCompositeTrack()
{
    NextMarker();
    const sailing::CompositeTrack& track = voyage_.Composite;
    if (!track.IsComposite) {
        Put("");
        return;
    }
    text_.SetBold(true);
    text_.SetUnderline(true);
    Put("Composite sailing:");
    text_.SetBold(false);
    text_.SetUnderline(false);
    Put("\n\nThe Vertex is higher than the maximum allowed latitude: " + FormatLat(track.LimitLat) + "\n");
    Put("The computed track is\n");
    const std::string touch1 = SailingPosition(track.LimitLat, track.TouchLong1);
    const std::string touch2 = SailingPosition(track.LimitLat, track.TouchLong2);
    PutLeg("1) a great circle (arc of geodesic curve on an ellipsoid) between",
           SailingPosition(voyage_.Input.DepLat, voyage_.Input.DepLong), touch1, Distance(track.LegDist[0]));
    PutLeg("2) a rhumb line between", touch1, touch2, Distance(track.LegDist[1]));
    PutLeg("3) a second great circle between", touch2, SailingPosition(voyage_.Input.ArrLat, voyage_.Input.ArrLong),
           Distance(track.LegDist[2]) + ".");
    Put("\n");
}

std::string VoyageText::SumSentences() const
{
    return "The total theoretical distance is " + Distance(voyage_.Total) +
           "\nbut you will proceed along rhumb lines which approximate the great circle"
           "\nwith an accuracy dependent on the longitude interval you entered."
           "\nThe total distance equal to the sum of the rhumb lines distances is\n" +
           Distance(voyage_.Sum) +
           ".\nThe total distance of a single rhumb line equivalent to the whole"
           "\ngreat circle (RL true course = " +
           CourseText(voyage_.RhumbCourse) + ") is " + Distance(voyage_.RhumbDistance) + ".\nThis means a saving of " +
           Distance(voyage_.RhumbDistance - voyage_.Sum) + ".";
}

std::string VoyageText::TotalSentences() const
{
    return "The total distance is " + Distance(voyage_.Total) +
           ".\nThe total distance of the equivalent rhumb line (true course = " + CourseText(voyage_.RhumbCourse) +
           ") is\n" + Distance(voyage_.RhumbDistance) + ".\nThis means a saving of " +
           Distance(voyage_.RhumbDistance - voyage_.Total) + ".";
}

void VoyageText::PutDistances()
{
    NextMarker();
    Put(voyage_.Waypoints.empty() ? TotalSentences() : SumSentences());
}

/// A value of a column of waypoints, or blanks as wide where it is 0.
std::string Column(double value, const char* pattern)
{
    const std::string text = FormatNumber(value, pattern);
    return value == 0.0 ? std::string(numeric::CountCharacters(text), ' ') : text;
}

std::string WaypointLine(const sailing::Waypoint& w)
{
    constexpr const char* Miles = "00000.0'";
    const std::string toGo = w.ToGo == 0.0 ? std::string() : FormatNumber(w.ToGo, Miles);
    return FormatLat(w.Lat) + " " + FormatLong(w.Long) + " " + Column(w.Course, CoursePattern) + "   " +
           Column(w.Distance, Miles) + "   " + Column(w.Run, Miles) + " " + toGo + "\n";
}

void VoyageText::PutWaypoints()
{
    NextMarker();
    text_.SetFontName(CodeFont);
    text_.SetFontSize(WaypointSize);
    if (voyage_.Waypoints.empty())
        Put(voyage_.Input.LongInterval ? "The waypoints could not be computed.\n"
                                       : "No longitude interval given by the user.\n");
    bool blue = false;
    for (const sailing::Waypoint& waypoint : voyage_.Waypoints) {
        text_.SetColour(blue ? Qt::blue : Qt::black);
        Put(WaypointLine(waypoint));
        blue = !blue;
    }
}

void VoyageText::PutClosing()
{
    text_.SetFontName(LetterFont);
    text_.SetFontSize(ClosingSize);
    text_.SetColour(Qt::black);
    Put("\nThe period of the geodesic curve is " + FormatNumber(voyage_.Period, "##0°.0#") + "\n");
    Put("The great circle theoretical departure course is " + CourseText(voyage_.DepartureCourse) + "\n");
    Put("The great circle theoretical arrival course is " + CourseText(voyage_.ArrivalCourse) + "\n");
    text_.SetItalic(true);
    text_.SetUnderline(true);
    text_.SetParagraphAlignment(Qt::AlignHCenter);
    Put("\nEnd of great circle calculation by " + std::string(ProgramName));
}

} // namespace

std::optional<QString> BuildSailingReport(RichText& text, const QString& templateFile, const Voyage& voyage,
                                          const QString& ellipsoidName, const sailing::EarthModel& earth)
{
    assert(voyage.Refusal == sailing::VoyageRefusal::None);
    RichText report;
    if (std::optional<QString> wrong = LoadTemplate(report, templateFile, MarkerCount)) return wrong;

    VoyageText words(report, voyage, sailing::IsSphere(earth.InverseFlattening));
    words.PutHead(ellipsoidName);
    words.PutCompositeTrack();
    words.PutDistances();
    words.PutWaypoints();
    words.PutClosing();
    text = std::move(report);
    return {};
}

} // namespace merov::output
