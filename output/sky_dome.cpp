#include "output/sky_dome.h"

#include "ephemeris/time_lib.h"
#include "numeric/inout_lib.h"
#include "numeric/math_lib.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace merov::output
{
namespace
{

using planning::ListedBody;

constexpr double Gap = 4.0;         // between texts and what they stand beside
constexpr double TextRoom = 1.5;    // about a name
constexpr double MarkGap = 3.5;     // between the dot of a picked body and its ring
constexpr double LeadDistance = 18; // between a body and a name that is led to it

bool IsSun(std::string_view body)
{
    return body.starts_with("SUN");
}

bool IsMoon(std::string_view body)
{
    return body.starts_with("MOON");
}

double DotRadius(const ListedBody& body)
{
    if (IsSun(body.Body)) return 10.0;
    if (IsMoon(body.Body)) return 9.0;
    return std::clamp(4.4 - 0.9 * body.Magnitude, 1.6, 6.5);
}

/// Time and position on one line, or on two where the surface is narrow.
QStringList CaptionLines(const SkySubject& sky, double width, const DomeMeasure& measure)
{
    const std::string time = ephemeris::FormatDateTime(sky.Instant, "d mmm yyyy hh:mm:ss") + " GMT";
    const std::string place = numeric::FormatLat(sky.Place.Lat) + "   " + numeric::FormatLong(sky.Place.Long);
    const QString line = QString::fromStdString(time + "     " + place);
    if (measure(line, false).width() + 2.0 * Gap <= width) return {line};
    return {QString::fromStdString(time), QString::fromStdString(place)};
}

/// The box of a text by its middle.
QRectF BoxAround(const QPointF& middle, const QSizeF& size)
{
    return {middle.x() - size.width() / 2.0, middle.y() - size.height() / 2.0, size.width(), size.height()};
}

/// Places names so that each is clear of what has been placed before.
class NamePlacer
{
public:
    NamePlacer(const SkyDome& dome, const QSizeF& size) : dome_(dome), surface_({0.0, 0.0}, size)
    {
        for (const DomeText& text : dome.Scale)
            taken_.push_back(text.Box);
        for (const DomeBody& body : dome.Bodies)
            taken_.push_back(BoxAround(body.Place, QSizeF(2.0, 2.0) * body.Reach));
    }

    void Place(DomeBody& body, const QSizeF& size, bool isPicked)
    {
        if (TryBeside(body, size, body.Reach + Gap) || !isPicked) return;
        body.Led =
            TryBeside(body, size, body.Reach + LeadDistance) || TryBeside(body, size, body.Reach + 2.0 * LeadDistance);
    }

private:
    /// Within the rim where that can be, else across it.
    bool TryBeside(DomeBody& body, const QSizeF& size, double distance)
    {
        return Try(body, size, distance, true) || Try(body, size, distance, false);
    }

    bool Try(DomeBody& body, const QSizeF& size, double distance, bool withinRim)
    {
        // From the right over the corners to the left; straight above and below last.
        constexpr std::array<QPointF, 8> Sides = {
            {{1, 0}, {1, -1}, {1, 1}, {-1, 0}, {-1, -1}, {-1, 1}, {0, -1}, {0, 1}}};
        for (const QPointF& side : Sides) {
            const double slant = side.x() != 0.0 && side.y() != 0.0 ? 0.7 : 1.0;
            const QPointF middle(body.Place.x() + side.x() * (distance * slant + size.width() / 2.0),
                                 body.Place.y() + side.y() * (distance * slant + size.height() / 2.0));
            const QRectF box = BoxAround(middle, size);
            if (!IsFree(box.adjusted(-TextRoom, -TextRoom, TextRoom, TextRoom))) continue;
            if (withinRim && !IsWithinRim(box)) continue;
            body.Name = box;
            taken_.push_back(box);
            return true;
        }
        return false;
    }

    bool IsFree(const QRectF& room) const
    {
        return surface_.contains(room) &&
               std::ranges::none_of(taken_, [&room](const QRectF& other) { return room.intersects(other); });
    }

    bool IsWithinRim(const QRectF& box) const
    {
        return std::ranges::all_of(std::array{box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()},
                                   [this](const QPointF& corner) { return dome_.IsWithinRim(corner); });
    }

    const SkyDome& dome_;
    QRectF surface_;
    std::vector<QRectF> taken_;
};

/// Bearings round the rim, altitudes on the rings.
void AddScale(SkyDome& dome, const DomeMeasure& measure)
{
    const auto add = [&](const QString& text, bool isBold, const auto& middleFor) {
        const QSizeF letters = measure(text, isBold);
        dome.Scale.push_back({text, BoxAround(middleFor(letters), letters), isBold});
    };
    constexpr std::array<const char*, 4> Points = {"N", "E", "S", "W"};
    for (int azimuth = 0; azimuth < 360; azimuth += 30) {
        const bool isPoint = azimuth % 90 == 0;
        const QString text = isPoint ? QString::fromLatin1(Points[static_cast<std::size_t>(azimuth / 90)])
                                     : QStringLiteral("%1").arg(azimuth, 3, 10, QLatin1Char('0'));
        add(text, isPoint, [&](const QSizeF& letters) {
            const QPointF out = (dome.At(azimuth, 0.0) - dome.Zenith) / dome.Radius;
            const double half = std::abs(out.x()) * letters.width() / 2.0 + std::abs(out.y()) * letters.height() / 2.0;
            return dome.Zenith + out * (dome.Radius + SkyDome::LongTick + Gap + half);
        });
    }
    for (const int altitude : {30, 60})
        add(QString::fromUtf8("%1°").arg(altitude), false, [&](const QSizeF& letters) {
            return dome.At(0.0, altitude) + QPointF(letters.width() / 2.0 + Gap, -letters.height() / 2.0 - Gap);
        });
}

} // namespace

QPointF SkyDome::At(double azimuth, double altitude) const
{
    const double distance = Radius * std::max(0.0, 90.0 - altitude) / 90.0;
    const double bearing = azimuth * numeric::DegToRad;
    return {Zenith.x() + distance * std::sin(bearing), Zenith.y() - distance * std::cos(bearing)};
}

bool SkyDome::IsWithinRim(const QPointF& place) const
{
    return std::hypot(place.x() - Zenith.x(), place.y() - Zenith.y()) < Radius;
}

const DomeBody* SkyDome::BodyAt(const QPointF& place) const
{
    const DomeBody* nearest = nullptr;
    double least = 0.0;
    for (const DomeBody& body : Bodies) {
        const double distance = std::hypot(place.x() - body.Place.x(), place.y() - body.Place.y());
        if (distance > body.Reach + Gap && !body.Name.contains(place)) continue;
        if (nearest != nullptr && distance >= least) continue;
        nearest = &body;
        least = distance;
    }
    return nearest;
}

SkyDome LayOutSky(const SkySubject& sky, const QSizeF& size, const DomeMeasure& measure)
{
    SkyDome dome;
    double caption = Gap; // its lower edge
    for (const QString& line : CaptionLines(sky, size.width(), measure)) {
        const QSizeF letters = measure(line, false);
        const QPointF middle(size.width() / 2.0, caption + Gap + letters.height() / 2.0);
        dome.Scale.push_back({line, BoxAround(middle, letters), false});
        caption += Gap + letters.height();
    }
    const QSizeF number = measure(QStringLiteral("000"), false);
    const double beside = SkyDome::LongTick + 2.0 * Gap + number.width();
    const double above = SkyDome::LongTick + 2.0 * Gap + number.height();
    dome.Radius = std::max(1.0, std::min(size.width() / 2.0 - beside, (size.height() - caption) / 2.0 - above));
    dome.Zenith = {size.width() / 2.0, (size.height() + caption) / 2.0};
    AddScale(dome, measure);

    for (std::size_t i = 0; i < sky.Bodies.size(); ++i) {
        const ListedBody& body = sky.Bodies[i];
        if (body.Altitude < 0.0) continue;
        const double radius = DotRadius(body);
        const QString name = QString::fromUtf8(body.Body.data(), static_cast<qsizetype>(body.Body.size()));
        const double reach = radius + (body.Picked ? MarkGap : 0.0);
        dome.Bodies.push_back({i, name, dome.At(body.Azimuth, body.Altitude), radius, reach, {}, false});
    }
    std::vector<std::size_t> order(dome.Bodies.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto of = [&](std::size_t i) -> const ListedBody& { return sky.Bodies[dome.Bodies[i].Index]; };
    std::stable_sort(order.begin(), order.end(), [&of](std::size_t a, std::size_t b) {
        if (of(a).Picked != of(b).Picked) return of(a).Picked;
        return of(a).Magnitude < of(b).Magnitude;
    });
    NamePlacer names(dome, size);
    for (const std::size_t i : order)
        names.Place(dome.Bodies[i], measure(dome.Bodies[i].Text, of(i).Picked), of(i).Picked);
    return dome;
}

} // namespace merov::output
