#include "output/sky_dome.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <algorithm>
#include <cmath>

/// How the sky dome looks.

namespace merov::output
{
namespace
{

constexpr double ShortTick = 5.0; // outside the rim

QFont Bold(QFont font)
{
    font.setBold(true);
    return font;
}

/// A colour between two others.
QColor Between(const QColor& from, const QColor& to, double share)
{
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

/// Colours of a dome, all from the palette.
struct DomeColours {
    explicit DomeColours(const QPalette& palette)
        : Around(palette.color(QPalette::Window)), Sky(palette.color(QPalette::Base)),
          Ink(palette.color(QPalette::Text)), Mark(palette.color(QPalette::Highlight)), Lines(Between(Sky, Ink, 0.3)),
          Faint(Between(Sky, Ink, 0.75)), Scale(palette.color(QPalette::WindowText))
    {
    }

    QColor Around;
    QColor Sky;
    QColor Ink;
    QColor Mark;
    QColor Lines;
    QColor Faint;
    QColor Scale;
};

void DrawNet(QPainter& painter, const SkyDome& dome, const DomeColours& colours)
{
    painter.setBrush(colours.Sky);
    painter.setPen(QPen(colours.Scale, 1.5));
    painter.drawEllipse(dome.Zenith, dome.Radius, dome.Radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.Lines, 1.0));
    for (const double altitude : {30.0, 60.0}) {
        const double radius = dome.Radius * (90.0 - altitude) / 90.0;
        painter.drawEllipse(dome.Zenith, radius, radius);
    }
    for (int azimuth = 0; azimuth < 180; azimuth += 90)
        painter.drawLine(dome.At(azimuth, 0.0), dome.At(azimuth + 180.0, 0.0));
    painter.setPen(QPen(colours.Scale, 1.2, Qt::SolidLine, Qt::FlatCap));
    for (int azimuth = 0; azimuth < 360; azimuth += 10) {
        const QPointF rim = dome.At(azimuth, 0.0);
        const double length = azimuth % 30 == 0 ? SkyDome::LongTick : ShortTick;
        painter.drawLine(rim, rim + (rim - dome.Zenith) / dome.Radius * length);
    }
}

void DrawText(QPainter& painter, const QRectF& box, const QString& text, const QFont& font, const QColor& colour)
{
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(box.bottomLeft(), text);
}

/// A name, with the lines of the dome cleared away about its letters.
void DrawName(QPainter& painter, const QRectF& box, const QString& text, const QFont& font, const QColor& colour,
              const QColor& ground)
{
    QPainterPath letters;
    letters.addText(box.bottomLeft(), font, text);
    painter.strokePath(letters, QPen(ground, 3.0));
    DrawText(painter, box, text, font, colour);
}

/// The Sun is a ring about a dot, the Moon a half disc, all others are dots.
void DrawSymbol(QPainter& painter, const DomeBody& body, std::string_view code, const DomeColours& colours)
{
    painter.setPen(QPen(colours.Ink, 1.5));
    painter.setBrush(colours.Sky);
    if (code.starts_with("SUN")) {
        painter.drawEllipse(body.Place, body.Radius, body.Radius);
        painter.setBrush(colours.Ink);
        painter.drawEllipse(body.Place, 2.0, 2.0);
    } else if (code.starts_with("MOON")) {
        painter.drawEllipse(body.Place, body.Radius, body.Radius);
        painter.setBrush(colours.Ink);
        const QRectF disc(body.Place - QPointF(body.Radius, body.Radius), QSizeF(2.0, 2.0) * body.Radius);
        painter.drawChord(disc, 90 * 16, 180 * 16);
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.Ink);
        painter.drawEllipse(body.Place, body.Radius, body.Radius);
    }
}

/// The line from a body to a name that stands apart from it.
void DrawLead(QPainter& painter, const DomeBody& body)
{
    const QPointF end(std::clamp(body.Place.x(), body.Name.left() - 2.0, body.Name.right() + 2.0),
                      std::clamp(body.Place.y(), body.Name.top() - 2.0, body.Name.bottom() + 2.0));
    const QPointF way = end - body.Place;
    const double length = std::hypot(way.x(), way.y());
    if (length > body.Reach) painter.drawLine(body.Place + way / length * body.Reach, end);
}

} // namespace

DomeMeasure MeasureOf(const QFont& font, const QPaintDevice* device)
{
    return [plain = QFontMetricsF(font, device), bold = QFontMetricsF(Bold(font), device)](const QString& text,
                                                                                           bool isBold) {
        const QFontMetricsF& metrics = isBold ? bold : plain;
        return QSizeF(metrics.horizontalAdvance(text), metrics.capHeight());
    };
}

void DrawSky(QPainter& painter, const QSizeF& size, const SkySubject& sky, const QPalette& palette)
{
    const QFont font = painter.font();
    const QFont bold = Bold(font);
    const DomeColours colours(palette);
    const SkyDome dome = LayOutSky(sky, size, MeasureOf(font, painter.device()));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF({0.0, 0.0}, size), colours.Around);
    DrawNet(painter, dome, colours);
    for (const DomeText& text : dome.Scale)
        DrawText(painter, text.Box, text.Text, text.Bold ? bold : font, colours.Scale);
    for (const DomeBody& body : dome.Bodies) {
        const planning::ListedBody& listed = sky.Bodies[body.Index];
        DrawSymbol(painter, body, listed.Body, colours);
        if (listed.Picked) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(colours.Mark, 2.0));
            painter.drawEllipse(body.Place, body.Reach - 1.0, body.Reach - 1.0);
            if (body.Led) DrawLead(painter, body);
        }
    }
    for (const DomeBody& body : dome.Bodies) {
        if (body.Name.isEmpty()) continue;
        const bool isPicked = sky.Bodies[body.Index].Picked;
        DrawName(painter, body.Name, body.Text, isPicked ? bold : font, isPicked ? colours.Ink : colours.Faint,
                 dome.IsWithinRim(body.Name.center()) ? colours.Sky : colours.Around);
    }
    painter.restore();
}

} // namespace merov::output
