#include "platform/canvas.h"

#include <cmath>

namespace merov::platform
{
namespace
{

constexpr double PointsPerPixel = 0.75;

} // namespace

Canvas::Canvas(QPainter& painter, const QRectF& area)
    : painter_(painter), area_(area), font_(painter.font()), metrics_(font_, painter.device()),
      unitsPerPoint_(painter.device()->logicalDpiY() / 72.0), dotsPerUnit_(painter.device()->devicePixelRatioF())
{
    SetScale(0.0, 0.0, area.width(), area.height());
    painter.setRenderHint(QPainter::Antialiasing);
}

void Canvas::SetScale(double left, double top, double right, double bottom)
{
    left_ = left;
    top_ = top;
    scaleX_ = area_.width() / (right - left);
    scaleY_ = area_.height() / (bottom - top);
}

QPointF Canvas::At(double x, double y) const
{
    return {area_.left() + (x - left_) * scaleX_, area_.top() + (y - top_) * scaleY_};
}

void Canvas::SetFont(const QString& family, double points, bool bold)
{
    font_ = QFont(family);
    font_.setPointSizeF(points);
    font_.setBold(bold);
    metrics_ = QFontMetricsF(font_, painter_.device());
    painter_.setFont(font_);
}

void Canvas::SetPen(const QColor& colour, double width, Qt::PenStyle style)
{
    QPen pen(colour, width * PointsPerPixel * unitsPerPoint_, style, Qt::FlatCap);
    penDots_ = pen.widthF() * dotsPerUnit_;
    painter_.setPen(pen);
}

double Canvas::OnDots(double at) const
{
    const double dots = at * dotsPerUnit_;
    const bool odd = std::lround(penDots_) % 2 != 0;
    return (odd ? std::floor(dots) + 0.5 : std::round(dots)) / dotsPerUnit_;
}

void Canvas::Line(double x1, double y1, double x2, double y2)
{
    QPointF from = At(x1, y1);
    QPointF to = At(x2, y2);
    if (x1 == x2) {
        from.setX(OnDots(from.x()));
        to.setX(from.x());
    } else if (y1 == y2) {
        from.setY(OnDots(from.y()));
        to.setY(from.y());
    }
    painter_.drawLine(from, to);
}

void Canvas::Text(double x, double y, const QString& text)
{
    const QPointF corner = At(x, y);
    painter_.drawText(QPointF(corner.x(), corner.y() + metrics_.ascent()), text);
}

void Canvas::Ellipse(double x, double y, double radiusX, double radiusY, bool filled)
{
    painter_.setBrush(filled ? QBrush(painter_.pen().color()) : QBrush(Qt::NoBrush));
    painter_.drawEllipse(At(x, y), std::abs(radiusX * scaleX_), std::abs(radiusY * scaleY_));
}

} // namespace merov::platform
