/// Draws a picture at the sizes of an icon theme:
///   write_icon DRAWING.svg FOLDER SUBFOLDER NAME SIZE...
/// gives FOLDER/SIZExSIZE/SUBFOLDER/NAME.png for each size in pixels.

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList given = QCoreApplication::arguments();
    QSvgRenderer drawing;
    if (given.size() < 6 || !drawing.load(given[1])) {
        std::fputs("usage: write_icon DRAWING.svg FOLDER SUBFOLDER NAME SIZE...\n", stderr);
        return 2;
    }
    for (const QString& word : given.mid(5)) {
        const int size = word.toInt();
        QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        const QString folder = QString("%1/%2x%2/%3").arg(given[2], word, given[3]);
        if (!QDir().mkpath(folder) || !picture.save(folder + "/" + given[4] + ".png")) {
            std::fprintf(stderr, "write_icon: can't write %s\n", qPrintable(folder));
            return 1;
        }
    }
    return 0;
}
