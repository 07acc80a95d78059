#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QString>

namespace merov::platform
{

/// Draws in coordinates of the caller's own, such as degrees, on any painter: a screen, a picture, a page.
///
/// The painter itself is never scaled. Letters and pens are told in points and keep their size whatever
/// the coordinates are; only places and lengths are turned into the painter's units.
class Canvas
{
public:
    /// @param painter  must outlive the canvas; takes antialiasing, and its pen, brush and font change
    /// @param area     the part of its surface to draw on, in its own units, of some width and height
    Canvas(QPainter& painter, const QRectF& area);

    /// The coordinates of the area's edges, which must differ; either axis may run both ways. At first
    /// they are the painter's own units, from 0.
    void SetScale(double left, double top, double right, double bottom);

    /// A place in the painter's units.
    QPointF At(double x, double y) const;

    /// The font of the next texts. @param points  height of the letters
    void SetFont(const QString& family, double points, bool bold = false);

    /// Width and height of a text in that font, in the painter's units, and its metrics on this device.
    double TextWidth(const QString& text) const { return metrics_.horizontalAdvance(text); }
    double TextHeight() const { return metrics_.height(); }
    const QFontMetricsF& Metrics() const { return metrics_; }

    /// The colour of lines and texts, and how lines are drawn.
    /// @param width  in pixels of a screen of 96 to the inch, which are 0.75 point on paper
    void SetPen(const QColor& colour, double width = 1.0, Qt::PenStyle style = Qt::SolidLine);

    /// A line. One along an axis is laid on whole dots, so that it is as sharp as the device can show it.
    void Line(double x1, double y1, double x2, double y2);

    /// A text whose upper left corner is at x, y.
    void Text(double x, double y, const QString& text);

    /// An ellipse along the axes, each radius in the coordinates of its own axis.
    void Ellipse(double x, double y, double radiusX, double radiusY, bool filled);

private:
    /// The place nearest to `at` where the pen fills whole dots.
    double OnDots(double at) const;

    QPainter& painter_;
    QRectF area_;
    QFont font_;
    QFontMetricsF metrics_;
    double unitsPerPoint_;
    double dotsPerUnit_;
    double penDots_ = 1.0;
    double left_ = 0.0;
    double top_ = 0.0;
    double scaleX_ = 1.0; // signed: painter's units in one of the coordinates
    double scaleY_ = 1.0;
};

} // namespace merov::platform
