#pragma once

#include "fix/sight_session.h"
#include "output/chart_painter.h"
#include "sailing/ellipsoid.h"

#include <QPixmap>
#include <QWidget>

#include <optional>

namespace merov::app
{

/// The chart on the screen (`picLMChart`). It keeps the fix that it shows, so that what is redrawn always
/// is the chart that was asked for, whatever is entered and computed meanwhile.
class ChartView : public QWidget
{
public:
    explicit ChartView(QWidget* parent = nullptr);

    /// Takes the fix to show, its sights as the chart sees them. Draw it next.
    void SetFix(const fix::SightSession& session, const sailing::EarthModel& earth);

    /// Takes fix and drawing away.
    void Clear();

    /// Draws the chart anew. Without a fix nothing happens.
    void Draw(const output::ChartSettings& settings, bool gridVisible);

    /// The chart as it is drawn, for a printer; nothing without a fix. It is good as long as the view's fix.
    std::optional<output::ChartSubject> Subject() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Redraw();

    std::optional<fix::SightSession> session_;
    sailing::EarthModel earth_;
    output::ChartSettings settings_;
    bool gridVisible_ = false;
    QPixmap drawing_;
    bool busy_ = false;   ///< being drawn
    bool failed_ = false; ///< an error has stopped the drawing; it waits for the next command
};

} // namespace merov::app
