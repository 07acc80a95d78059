#pragma once

#include "fix/sight_session.h"
#include "output/chart_settings.h"
#include "platform/print_job.h"
#include "sailing/ellipsoid.h"

#include <QSizeF>
#include <QString>

class QPainter;

/// The chart of a fix: a small plotting sheet with the position lines, the estimated and the true
/// position and the error ellipse.

namespace merov::output
{

/// What a chart shows. The sights of the session must be as the chart sees them (fix::BuildChartView).
struct ChartSubject {
    const fix::SightSession& Session;
    const sailing::EarthModel& Earth;
    ChartSettings Settings{};
    bool GridVisible = false;
};

/// Draws the chart on a screen, or on a picture that is to look like it.
/// @param size  of the surface, device-independent pixels, each side 1 or more; its corner is the
///              painter's origin. Text and lines keep their size on any surface
/// @return false where an error stopped the drawing; its box has been shown and what was drawn stays
bool DrawChart(QPainter& painter, const QSizeF& size, const ChartSubject& chart);

/// Draws the chart with its legend on the page of a print job, which is left open.
/// @return false where an error stopped the drawing, after its box; failures of the printer go to the
///         caller
bool DrawChartPage(platform::PrintJob& job, const ChartSubject& chart);

/// The fix in words, for those who cannot see the chart: position, time, ellipse, number of sights.
QString ChartDescription(const fix::SightSession& session);

} // namespace merov::output
