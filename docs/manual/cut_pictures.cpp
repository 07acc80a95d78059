/// Cuts the manual's pictures out of screenshots and makes them as small as a page wants them:
/// "merov_cut_pictures LIST SCREENSHOTS FOLDER". LIST names them (pictures.txt); SCREENSHOTS has the screens
/// at 200 %, whose finer grain survives the scaling.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRect>
#include <QTextStream>

#include <algorithm>
#include <iostream>
#include <stdexcept>

namespace
{

constexpr int Scale = 2;       // of the screenshots
constexpr int PageWidth = 620; // pixels; the help window as it opens shows that much

/// A line of the list.
struct Part {
    QString Picture;
    QString Screenshot;
    QRect Kept; ///< pixels at 100 %
};

Part ReadPart(const QString& line)
{
    const QStringList words = line.simplified().split(' ');
    QList<int> numbers;
    bool good = words.size() == 6;
    for (int i = 2; i < words.size() && good; i++)
        numbers += words[i].toInt(&good);
    if (!good) throw std::runtime_error("not a line of the list: " + line.toStdString());
    return {words[0], words[1], QRect(numbers[0], numbers[1], numbers[2], numbers[3])};
}

void Cut(const Part& part, const QDir& screenshots, const QDir& folder)
{
    const QString source = screenshots.filePath(part.Screenshot + ".png");
    const QImage screen(source);
    const QRect kept(part.Kept.topLeft() * Scale, part.Kept.size() * Scale);
    if (!screen.rect().contains(kept)) throw std::runtime_error("no such part: " + source.toStdString());
    const int width = std::min(part.Kept.width(), PageWidth);
    const QImage picture = screen.copy(kept).scaledToWidth(width, Qt::SmoothTransformation);
    const QString target = folder.filePath(part.Picture + ".png");
    if (!picture.convertToFormat(QImage::Format_RGB32).save(target))
        throw std::runtime_error("cannot write " + target.toStdString());
}

void CutAll(const QString& list, const QDir& screenshots, const QDir& folder)
{
    QFile file(list);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) throw std::runtime_error("cannot read the list");
    QTextStream lines(&file);
    while (!lines.atEnd()) {
        const QString line = lines.readLine();
        if (!line.isEmpty() && !line.startsWith('#')) Cut(ReadPart(line), screenshots, folder);
    }
}

} // namespace

int main(int argc, char** argv)
{
    try {
        if (argc != 4) throw std::runtime_error("usage: merov_cut_pictures LIST SCREENSHOTS FOLDER");
        CutAll(QFile::decodeName(argv[1]), QDir(QFile::decodeName(argv[2])), QDir(QFile::decodeName(argv[3])));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "merov_cut_pictures: " << error.what() << "\n";
        return 1;
    }
}
