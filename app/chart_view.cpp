#include "app/chart_view.h"

#include <QPainter>
#include <QScopedValueRollback>

#include <utility>

namespace merov::app
{

ChartView::ChartView(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("Chart"));
    setToolTip(QStringLiteral("+ Estimated Position   \u00b7 MPP"));
}

void ChartView::SetFix(const fix::SightSession& session, const sailing::EarthModel& earth)
{
    session_ = session;
    earth_ = earth;
    setAccessibleDescription(output::ChartDescription(session));
}

void ChartView::Clear()
{
    session_.reset();
    drawing_ = QPixmap();
    setAccessibleDescription({});
    update();
}

void ChartView::Draw(const output::ChartSettings& settings, bool gridVisible)
{
    settings_ = settings;
    gridVisible_ = gridVisible;
    Redraw();
}

std::optional<output::ChartSubject> ChartView::Subject() const
{
    if (!session_) return std::nullopt;
    return output::ChartSubject{*session_, earth_, settings_, gridVisible_};
}

/// Draws for the present size and screen. An error brings its box, which lets events through.
void ChartView::Redraw()
{
    const std::optional<output::ChartSubject> chart = Subject();
    if (!chart || busy_ || size().isEmpty()) return;
    const QScopedValueRollback<bool> busy(busy_, true);
    QPixmap drawing(size() * devicePixelRatioF());
    drawing.setDevicePixelRatio(devicePixelRatioF());
    drawing.fill(Qt::white);
    QPainter painter(&drawing);
    failed_ = !output::DrawChart(painter, size(), *chart);
    painter.end();
    drawing_ = std::move(drawing);
    update();
}

void ChartView::paintEvent(QPaintEvent*)
{
    // The window has come to a screen of another density: what is there serves until it is drawn anew.
    const bool otherScreen = !drawing_.isNull() && drawing_.devicePixelRatio() != devicePixelRatioF();
    if (otherScreen && !failed_)
        QMetaObject::invokeMethod(
            this, [this] { Redraw(); }, Qt::QueuedConnection);
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (!drawing_.isNull()) painter.drawPixmap(0, 0, drawing_);
}

void ChartView::resizeEvent(QResizeEvent*)
{
    const QSize drawn = drawing_.deviceIndependentSize().toSize();
    if (isVisible() && !failed_ && drawn != size()) Redraw();
}

} // namespace merov::app
