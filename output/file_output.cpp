#include "output/file_output.h"

#include "platform/printers.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextFragment>
#include <QUrl>

#include <set>

namespace merov::output
{
namespace
{

/// The names of the pictures in a text.
std::set<QString> PictureNames(const QTextDocument& text)
{
    std::set<QString> names;
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part)
            if (const QTextImageFormat picture = part.fragment().charFormat().toImageFormat(); picture.isValid())
                names.insert(picture.name());
    return names;
}

/// A text as a page for a browser, its pictures within it.
QByteArray Html(const QTextDocument& text)
{
    QString html = text.toHtml();
    for (const QString& name : PictureNames(text)) {
        QBuffer bytes;
        text.resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>().save(&bytes, "PNG");
        html.replace("src=\"" + name.toHtmlEscaped() + '"',
                     "src=\"data:image/png;base64," + bytes.data().toBase64() + '"');
    }
    return html.toUtf8();
}

QByteArray Words(const QTextDocument& text)
{
    QString words = text.toPlainText();
    words.remove(QChar::ObjectReplacementCharacter); // pictures
    return words.toUtf8() + '\n';
}

} // namespace

QString Ending(const QString& file)
{
    return QFileInfo(file).suffix().toLower();
}

std::optional<QString> WriteBytes(const QString& file, const QByteArray& bytes)
{
    QSaveFile target(file);
    // The commit writes what is still buffered and doesn't tell when that fails.
    if (target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.flush() && target.commit())
        return {};
    return "The file " + file + " could not be written: " + target.errorString();
}

std::optional<QString> WritePdf(const QString& file, const QString& title, QPageLayout::Orientation orientation,
                                const std::function<void(platform::PrintJob&)>& page)
{
    platform::FilePrinters printers;
    try {
        printers.SetOrientation(orientation);
        page(*printers.StartJob(title, file));
        return {};
    } catch (const platform::PrinterError& error) {
        return "The file " + file + " could not be written: " + QString(error.what());
    }
}

std::optional<QString> WriteText(const QString& file, const QString& title, QTextDocument& text,
                                 const PrintMargins& margins)
{
    text.setMetaInformation(QTextDocument::DocumentTitle, title);
    if (Ending(file) == "html") return WriteBytes(file, Html(text));
    if (Ending(file) == "txt") return WriteBytes(file, Words(text));
    return WritePdf(file, title, QPageLayout::Portrait,
                    [&](platform::PrintJob& job) { PrintRichText(text, job, margins); });
}

} // namespace merov::output
