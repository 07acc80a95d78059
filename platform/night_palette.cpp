#include "platform/night_palette.h"

#include <QApplication>
#include <QGraphicsEffect>
#include <QImage>
#include <QKeyEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <array>

namespace merov::platform
{
namespace
{

constexpr int Brightest = 240; ///< red of what is black by day, of 255

/// The red of each light. It falls off slowly, since on black the eye tells dark tones apart less than by
/// day pale ones: what is grey by day, an outline or the name of a button that is off, stays in sight.
constexpr std::array<QRgb, 256> MakeTones()
{
    std::array<QRgb, 256> tones{};
    for (int light = 0; light < 256; ++light)
        tones[static_cast<std::size_t>(light)] = qRgb((255 * 255 - light * light) * Brightest / (255 * 255), 0, 0);
    return tones;
}

constexpr std::array<QRgb, 256> Tones = MakeTones();

/// Colours of which night is made: light ones without a tint, and what is selected in reverse.
QPalette PaperPalette()
{
    QPalette paper = QApplication::style()->standardPalette();
    paper.setColor(QPalette::Window, Qt::white);
    paper.setColor(QPalette::Highlight, Qt::black);
    paper.setColor(QPalette::HighlightedText, Qt::white);
    return paper;
}

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
        // Only what is to be painted anew, in pixels of the device.
        const qreal ratio = source.devicePixelRatio();
        const QRect stale = painter->paintEngine()->systemClip().boundingRect();
        const QRect all = source.rect();
        const QRect part = stale.isEmpty() ? all : all & stale.translated(-(QPointF(offset) * ratio).toPoint());
        if (part.isEmpty()) return;
        // The source lacks the window's own ground.
        QImage picture(part.size(), QImage::Format_RGB32);
        picture.setDevicePixelRatio(ratio);
        picture.fill(window_.palette().color(window_.backgroundRole()));
        QPainter(&picture).drawPixmap(QPoint(), source, part);
        TurnToNight(picture);
        const QTransform transform = painter->worldTransform();
        painter->setWorldTransform(QTransform());
        painter->drawImage(QPointF(offset) + QPointF(part.topLeft()) / ratio, picture);
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
            // Half of the strongest colour, so that coloured grounds stay darker than texts on them.
            const int light = (std::max(red, std::max(green, blue)) + qGray(red, green, blue)) / 2;
            line[x] = Tones[static_cast<std::size_t>(light)];
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
    if (night) daylight_ = QApplication::palette();
    QApplication::setPalette(night ? PaperPalette() : daylight_);
    for (QWidget* window : QApplication::topLevelWidgets())
        Cover(*window);
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
