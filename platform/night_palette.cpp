#include "platform/night_palette.h"

#include <QApplication>
#include <QGraphicsEffect>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace merov::platform
{
namespace
{

constexpr int Brightest = 224; ///< red of what is black by day, of 255
constexpr int DarkGround = 128;

/// Turns all that its window paints to night.
class NightEffect : public QGraphicsEffect
{
public:
    explicit NightEffect(const QWidget& window) : window_(window) {}

protected:
    void draw(QPainter* painter) override
    {
        QPoint offset;
        const QPixmap source = sourcePixmap(Qt::DeviceCoordinates, &offset, QGraphicsEffect::NoPad);
        if (source.isNull()) return;
        // The source lacks the window's own ground.
        QImage picture(source.size(), QImage::Format_RGB32);
        picture.setDevicePixelRatio(source.devicePixelRatio());
        picture.fill(window_.palette().color(window_.backgroundRole()));
        QPainter(&picture).drawPixmap(0, 0, source);
        TurnToNight(picture);
        const QTransform transform = painter->worldTransform();
        painter->setWorldTransform(QTransform());
        painter->drawImage(offset, picture);
        painter->setWorldTransform(transform);
    }

private:
    const QWidget& window_;
};

} // namespace

void TurnToNight(QImage& picture)
{
    if (picture.format() != QImage::Format_RGB32) picture.convertTo(QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int red = qRed(line[x]);
            const int green = qGreen(line[x]);
            const int blue = qBlue(line[x]);
            // A little of the strongest colour, so that coloured grounds stay darker than texts on them.
            const int light = (std::max({red, green, blue}) + 4 * qGray(red, green, blue)) / 5;
            line[x] = qRgb((255 - light) * Brightest / 255, 0, 0);
        }
    }
}

NightPalette::NightPalette(QApplication& application) : application_(application)
{
    application_.installEventFilter(this);
}

NightPalette::~NightPalette()
{
    SetNight(false);
}

void NightPalette::SetNight(bool night)
{
    if (night == night_) return;
    night_ = night;
    if (night)
        TakeLightPalette();
    else if (daylight_)
        QApplication::setPalette(*std::exchange(daylight_, std::nullopt));
    for (QWidget* window : QApplication::topLevelWidgets())
        Cover(*window);
}

/// Night is made of a light ground: on a dark desktop the program takes the style's own colours.
void NightPalette::TakeLightPalette()
{
    const QPalette desktop = QApplication::palette();
    if (desktop.color(QPalette::Window).lightness() >= DarkGround) return;
    daylight_ = desktop;
    QApplication::setPalette(QApplication::style()->standardPalette());
}

void NightPalette::Cover(QWidget& window) const
{
    const bool covered = window.graphicsEffect() != nullptr;
    if (covered != night_) window.setGraphicsEffect(night_ ? new NightEffect(window) : nullptr);
}

bool NightPalette::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.key() == Qt::Key_N && key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
            if (!key.isAutoRepeat()) SetNight(!night_);
            return true;
        }
    }
    if (event->type() == QEvent::Show && object->isWidgetType()) {
        auto& window = static_cast<QWidget&>(*object);
        if (window.isWindow()) Cover(window);
    }
    return QObject::eventFilter(object, event);
}

} // namespace merov::platform
