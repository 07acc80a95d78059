#include "output/chart_texts.h"

#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"
#include "output/chart_painter.h"
#include "output/program_name.h"

#include <cmath>

namespace merov::output
{

using numeric::FormatNumber;

namespace
{

/// A probability in percent, with a decimal only where it has one: "95", "99.9".
std::string Percent(double probability)
{
    const double percent = probability * 100.0;
    const bool whole = std::abs(percent - std::round(percent)) < 0.05;
    return FormatNumber(percent, whole ? "##0" : "##0.0");
}

std::string Position(const fix::SightSession& session)
{
    return numeric::FormatLat(session.TrueLat) + " " + numeric::FormatLong(session.TrueLong);
}

} // namespace

ChartLegend ChartLegendOf(const fix::SightSession& session)
{
    const std::string time = "Position on " + ephemeris::FormatDateTime(session.TimeTruePos, "d mmm yyyy") + " at " +
                             ephemeris::FormatDateTime(session.TimeTruePos, "hh:mm:ss") + " GMT:";
    const std::string fix = "  • Most Probable Position " + Position(session) + " / Ellipse " +
                            Percent(session.Probability) + " % / " + FormatNumber(session.Course, "000°.0") + " - " +
                            FormatNumber(session.Speed, "##0'.0") + "   {+ Estimated Position}       ";
    return {{{QString::fromStdString(time), true},
             {QString::fromStdString(fix), false},
             {QString::fromUtf8(ProgramName) + " - May 2004", true}}};
}

QString ChartDescription(const fix::SightSession& session)
{
    const auto minutes = [](double degrees) { return FormatNumber(degrees * 60.0, "#0'.00"); };
    return QString::fromStdString("Most probable position " + Position(session) + " on " +
                                  ephemeris::FormatDateTime(session.TimeTruePos, "d mmm yyyy hh:mm:ss") +
                                  " GMT. Ellipse of " + Percent(session.Probability) + " % probability: NS " +
                                  minutes(session.EllipseNS) + ", EW " + minutes(session.EllipseEW) +
                                  ". Lines of position: " + std::to_string(session.ObsCount) + ".");
}

} // namespace merov::output
