#include "output/sky_dome.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>

namespace merov::output
{
namespace
{

/// Letters of one width.
QSizeF EqualLetters(const QString& text, bool bold)
{
    return {(bold ? 8.0 : 7.0) * double(text.size()), 9.0};
}

SkyDome LayOut(std::vector<planning::ListedBody> bodies, const QSizeF& size = {600.0, 600.0})
{
    return LayOutSky({38159.5, {50.0, 0.0, 10.0}, std::move(bodies)}, size, EqualLetters);
}

TEST(SkyDome, PlacesBodiesAsOnACompassCard)
{
    const SkyDome dome = LayOut({{"SIRIUS", -1.6, 0.0, 90.0},
                                 {"VEGA", 0.1, 45.0, 0.0},
                                 {"SPICA", 1.2, -0.1, 10.0},
                                 {"SUNLOW", -26.9, 60.0, 225.0},
                                 {"MENKAR", 2.8, 90.2, 33.0, true}});
    ASSERT_EQ(dome.Bodies.size(), 4u) << "none below the horizon";
    struct {
        double X, Y; // from the zenith, in radii
    } const places[] = {{1.0, 0.0}, {0.0, -0.5}, {-0.2357023, 0.2357023}, {0.0, 0.0}};
    for (std::size_t i = 0; i < 4; ++i) {
        const QPointF place = (dome.Bodies[i].Place - dome.Zenith) / dome.Radius;
        EXPECT_NEAR(place.x(), places[i].X, 1e-7) << i;
        EXPECT_NEAR(place.y(), places[i].Y, 1e-7) << i;
    }
    EXPECT_GT(dome.Bodies[2].Radius, dome.Bodies[0].Radius) << "the Sun";
    EXPECT_GT(dome.Bodies[0].Radius, dome.Bodies[1].Radius) << "the brighter";
    EXPECT_GT(dome.Bodies[3].Reach, dome.Bodies[3].Radius) << "the ring of a picked one";
    EXPECT_EQ(dome.BodyAt(dome.At(90.0, 0.5)), &dome.Bodies[0]);
    EXPECT_EQ(dome.BodyAt(dome.At(180.0, 45.0)), nullptr);
}

TEST(SkyDome, NamesStayApartAndWithinThePicture)
{
    std::vector<planning::ListedBody> crowd;
    for (int i = 0; i < 60; ++i)
        crowd.push_back({"RASALHAGUE", 0.05 * i, (i * 7) % 90 * 1.0, (i * 37) % 120 * 3.0, i % 12 == 0});
    for (int i = 0; i < 4; ++i)
        crowd.push_back({"MOONLOW", -11.0, 30.0 + 0.2 * i, 200.0, true});
    for (const QSizeF size : {QSizeF(320, 340), QSizeF(900, 500), QSizeF(1200, 1100)}) {
        const SkyDome dome = LayOut(crowd, size);
        std::vector<QRectF> boxes;
        for (const DomeText& text : dome.Scale)
            boxes.push_back(text.Box);
        std::size_t unnamed = 0;
        for (const DomeBody& body : dome.Bodies) {
            unnamed += body.Name.isEmpty();
            if (!body.Name.isEmpty()) boxes.push_back(body.Name);
            for (const DomeBody& other : dome.Bodies)
                EXPECT_FALSE(body.Name.contains(other.Place)) << "a name on a body";
            const bool mustHaveRoom = size.width() > 400.0 && crowd[body.Index].Picked;
            EXPECT_TRUE(!mustHaveRoom || !body.Name.isEmpty()) << body.Index;
        }
        EXPECT_LT(unnamed, size.width() < 400 ? 55u : 30u) << size.width();
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            EXPECT_TRUE(QRectF({0.0, 0.0}, size).contains(boxes[i])) << i;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(boxes[i].intersects(boxes[j])) << i << ' ' << j;
        }
    }
}

/// All colours of a dome come from the palette, so that it is readable on every desktop.
TEST(SkyDome, DrawnInTheColoursOfThePalette)
{
    QPalette red;
    for (const auto role : {QPalette::Window, QPalette::Base})
        red.setColor(role, Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::Highlight})
        red.setColor(role, QColor(200, 0, 0));
    QImage picture(800, 800, QImage::Format_RGB32);
    picture.setDevicePixelRatio(2.0);
    QPainter painter(&picture);
    DrawSky(painter, {400.0, 400.0}, {38159.5, {}, {{"SUNLOW", -26.9, 40.0, 90.0, true}, {"MOONLOW", -11.0, 9.0, 1.0}}},
            red);
    painter.end();
    int inked = 0;
    for (int i = 0; i < 800 * 800; ++i) {
        const QColor dot = picture.pixelColor(i % 800, i / 800);
        ASSERT_EQ(dot.green() + dot.blue(), 0) << i;
        inked += dot.red() > 100;
    }
    EXPECT_GT(inked, 5000);
}

} // namespace
} // namespace merov::output
