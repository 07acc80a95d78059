#include "app/pictures.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace merov::app
{
namespace
{

/// The names of all drawings but the artwork of the splash, which has its own ground.
QStringList Names()
{
    Picture("merov"); // brings the drawings in
    const QStringList names = QDir(":/icons").entryList({"*.svg"}).replaceInStrings(".svg", "");
    return names.filter(QRegularExpression("^(?!splash)"));
}

/// Pixels of the picture that clearly stand out from a desktop of one colour.
int Standing(const QPixmap& picture, const QColor& desktop)
{
    QImage image(picture.size(), QImage::Format_RGB32);
    image.fill(desktop);
    QPainter(&image).drawPixmap(image.rect(), picture);
    int count = 0;
    for (int i = 0; i < image.width() * image.height(); ++i)
        count += std::abs(qGray(image.pixel(i % image.width(), i / image.width())) - qGray(desktop.rgb())) > 50;
    return count;
}

TEST(Pictures, EachStandsOutInEverySizeOnEveryDesktop)
{
    const QStringList names = Names();
    EXPECT_GT(names.size(), 30);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QIcon picture = Picture(name.toStdString());
        for (const int size : {16, 32, 140}) {
            const QPixmap drawn = picture.pixmap(QSize(size, size), 1.0);
            EXPECT_EQ(drawn.size(), QSize(size, size));
            for (const int grey : {0x2d, 0xf0})
                EXPECT_GT(Standing(drawn, QColor(grey, grey, grey)), size * size / 12) << size << ' ' << grey;
        }
        const QPixmap dense = picture.pixmap(QSize(32, 32), 2.0);
        EXPECT_EQ(dense.size(), QSize(64, 64));
        EXPECT_EQ(dense.devicePixelRatio(), 2.0);
    }
}

TEST(Pictures, PaintedSharpOnADenseScreen)
{
    QImage screen(64, 64, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(2.0);
    screen.fill(Qt::transparent);
    QPainter painter(&screen);
    Picture("grid").paint(&painter, QRect(0, 0, 32, 32));
    painter.end();
    QImage wanted = Picture("grid").pixmap(QSize(64, 64), 1.0).toImage();
    wanted.setDevicePixelRatio(2.0);
    EXPECT_EQ(screen, wanted.convertToFormat(screen.format()));
}

TEST(Pictures, OutOfUseWithoutColourAndUnknownOnesRefused)
{
    const QImage off = Picture("exit").pixmap(QSize(32, 32), 1.0, QIcon::Disabled).toImage();
    EXPECT_GT(off.pixelColor(10, 16).alpha(), 100);
    for (int i = 0; i < 32 * 32; ++i)
        EXPECT_LT(off.pixelColor(i % 32, i / 32).saturation(), 16);
    EXPECT_THROW(Picture("no_such_picture"), std::logic_error);
}

} // namespace
} // namespace merov::app
