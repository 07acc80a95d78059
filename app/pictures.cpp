#include "app/pictures.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <memory>
#include <stdexcept>
#include <string>

/// The drawings lie in a static library, from which a linker takes only what is asked for by name.
static void KeepDrawings()
{
    Q_INIT_RESOURCE(icons);
}

namespace merov::app
{

namespace
{

/// Draws a vector picture anew for each size, so that no size is scaled from another.
class DrawingEngine : public QIconEngine
{
public:
    explicit DrawingEngine(QString path) : path_(std::move(path)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal density = painter->device()->devicePixelRatioF();
        QPixmap drawn = pixmap((QSizeF(rect.size()) * density).toSize(), mode, state);
        drawn.setDevicePixelRatio(density);
        painter->drawPixmap(rect.topLeft(), drawn);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        Q_UNUSED(state);
        const bool off = mode == QIcon::Disabled;
        const QString key = QStringLiteral("%1 %2 %3 %4").arg(path_).arg(size.width()).arg(size.height()).arg(off);
        QPixmap drawn;
        if (QPixmapCache::find(key, &drawn)) return drawn;
        drawn = QPixmap::fromImage(off ? Greyed(Draw(size)) : Draw(size));
        QPixmapCache::insert(key, drawn);
        return drawn;
    }

    QIconEngine* clone() const override { return new DrawingEngine(*this); }

private:
    /// The whole drawing in the middle of `size`, its shape kept.
    QImage Draw(const QSize& size)
    {
        if (!drawing_) drawing_ = std::make_shared<QSvgRenderer>(path_);
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        if (size.isEmpty()) return image;
        QRectF place({}, drawing_->viewBoxF().size().scaled(size, Qt::KeepAspectRatio));
        place.moveCenter(QRectF(image.rect()).center());
        QPainter painter(&image);
        drawing_->render(&painter, place);
        return image;
    }

    /// A command that is out of use: no colours, drawn towards the middle grey and half faded into the
    /// ground, so that it is as faint on a dark desktop as on a light one.
    static QImage Greyed(QImage image)
    {
        constexpr int Faded = 140; // of 255
        for (int y = 0; y < image.height(); ++y) {
            auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
            for (int x = 0; x < image.width(); ++x) {
                const int cover = qAlpha(line[x]);
                const int grey = (qGray(line[x]) + cover / 2) / 2 * Faded / 255; // times the cover, as all is
                line[x] = qRgba(grey, grey, grey, cover * Faded / 255);
            }
        }
        return image;
    }

    QString path_;
    std::shared_ptr<QSvgRenderer> drawing_; ///< read when it is first drawn
};

} // namespace

QIcon Picture(std::string_view name)
{
    KeepDrawings();
    const QString path = QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name));
    if (!QFile::exists(path)) throw std::logic_error("no picture \"" + std::string(name) + "\"");
    return QIcon(new DrawingEngine(path));
}

} // namespace merov::app
