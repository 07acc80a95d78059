#pragma once

#include "planning/star_list.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <functional>
#include <vector>

class QFont;
class QPaintDevice;
class QPainter;
class QPalette;

/// The sky dome: the bodies above the horizon as on a compass card, on which their bearings are read. The
/// zenith is in the middle, the horizon is the rim, north is up and east at the right; the altitude goes
/// linearly with the distance from the rim.

namespace merov::output
{

/// What a dome shows.
struct SkySubject {
    double Instant = 0.0; ///< date-time, GMT
    planning::Observer Place;
    std::vector<planning::ListedBody> Bodies; ///< those below 0 degrees don't show
};

/// Width of a text, and height of its capitals and figures, in the units of the surface.
using DomeMeasure = std::function<QSizeF(const QString& text, bool bold)>;

/// A text by the box of its letters, whose lower edge is their baseline.
struct DomeText {
    QString Text;
    QRectF Box;
    bool Bold = false;
};

/// A body on the dome.
struct DomeBody {
    std::size_t Index = 0; ///< in SkySubject::Bodies
    QString Text;          ///< its name
    QPointF Place;
    double Radius = 0.0; ///< of its dot, larger for brighter bodies; of the discs of Sun and Moon
    double Reach = 0.0;  ///< of all that is drawn there: the dot, with the ring of a picked body
    QRectF Name;         ///< box of the name's letters; empty where it found no room
    bool Led = false;    ///< the name stands apart from its body, and a line leads to it
};

/// A dome laid out for a surface. Places and lengths are units of the surface, from its upper left corner.
struct SkyDome {
    static constexpr double LongTick = 8.0; ///< of each 30 degrees, outside the rim

    QPointF Zenith;
    double Radius = 0.0; ///< of the rim

    std::vector<DomeText> Scale; ///< caption, N E S W, bearings, altitudes of the rings
    std::vector<DomeBody> Bodies;

    /// @param azimuth   degrees clockwise from north
    /// @param altitude  degrees, 0 the rim; one above 90 counts as 90
    QPointF At(double azimuth, double altitude) const;

    bool IsWithinRim(const QPointF& place) const;

    /// The body whose drawing a place lies on, the nearest of several; null for none.
    const DomeBody* BodyAt(const QPointF& place) const;
};

/// Lays a dome out. No two texts overlap, none leaves the surface, and no name lies on a body: names are
/// moved about their bodies, those of picked ones also a little away, and one that finds no room is left
/// out, of the faint ones first.
/// @param size     of the surface, each side 200 or more for a legible dome
/// @param measure  of the letters that it will be drawn in
SkyDome LayOutSky(const SkySubject& sky, const QSizeF& size, const DomeMeasure& measure);

/// The measure of the letters that DrawSky takes on a painter's or widget's device.
DomeMeasure MeasureOf(const QFont& font, const QPaintDevice* device);

/// Draws a dome, caption included, in the painter's font and in the colours of the palette alone. Picked
/// bodies have a ring and a bold name.
void DrawSky(QPainter& painter, const QSizeF& size, const SkySubject& sky, const QPalette& palette);

} // namespace merov::output
