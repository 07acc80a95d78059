#include "output/exports.h"

#include "fix/sight_views.h"
#include "output/chart_painter.h"
#include "output/numeric_report.h"
#include "output/print_lib.h"
#include "platform/printers.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QUrl>

#include <set>

namespace merov::output
{
namespace
{

using Failure = std::optional<QString>;

constexpr QSize ScreenSize(1280, 800);
constexpr int ScreenDotsPerInch = 96;

QString Suffix(const QString& file)
{
    return QFileInfo(file).suffix().toLower();
}

/// Puts bytes into a file, whole or not at all.
Failure WriteBytes(const QString& file, const QByteArray& bytes)
{
    QSaveFile target(file);
    if (target.open(QIODevice::WriteOnly) && target.write(bytes) == bytes.size() && target.commit()) return {};
    return "The file " + file + " could not be written: " + target.errorString();
}

/// Prints to a PDF file.
/// @param page  draws on the job and ends it
template <class Page>
Failure WritePdf(const QString& file, const QString& title, QPageLayout::Orientation orientation, Page page)
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

Failure WritePicture(const QString& file, const ChartSubject& chart)
{
    QImage image(ScreenSize, QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(ScreenDotsPerInch / 0.0254));
    image.setDotsPerMeterY(qRound(ScreenDotsPerInch / 0.0254));
    image.fill(Qt::white);
    QPainter painter(&image);
    if (!DrawChart(painter, ScreenSize, chart)) return QString();
    painter.end();
    QBuffer bytes;
    image.save(&bytes, "PNG");
    return WriteBytes(file, bytes.data());
}

Failure WriteDrawing(const QString& file, const ChartSubject& chart)
{
    QBuffer bytes;
    QSvgGenerator generator;
    generator.setOutputDevice(&bytes);
    generator.setSize(ScreenSize);
    generator.setViewBox(QRect(QPoint(), ScreenSize));
    generator.setResolution(ScreenDotsPerInch);
    generator.setTitle("Position chart by Merov");
    generator.setDescription(ChartDescription(chart.Session));
    QPainter painter(&generator);
    if (!DrawChart(painter, ScreenSize, chart)) return QString();
    painter.end();
    return WriteBytes(file, bytes.data());
}

} // namespace

Failure WriteReport(const QString& file, const QString& appPath, fix::SightSession session,
                    const sailing::EarthModel& earth)
{
    const QString title = "Astronomic position by Merov";
    platform::RichText report;
    const Failure failure =
        BuildNumericReport(report, appPath + "/NumResults.rtf", session, earth, LinesPerPage(platform::FilePrinters()));
    if (failure) return failure;
    QTextDocument& text = report.Document();
    text.setMetaInformation(QTextDocument::DocumentTitle, title);
    if (Suffix(file) == "html") return WriteBytes(file, Html(text));
    if (Suffix(file) == "txt") return WriteBytes(file, Words(text));
    return WritePdf(file, title, QPageLayout::Portrait,
                    [&text](platform::PrintJob& job) { PrintRichText(text, job, ReportMargins); });
}

Failure WriteChart(const QString& file, fix::SightSession session, const sailing::EarthModel& earth)
{
    fix::BuildChartView(session, earth.InverseFlattening, earth.SemiMajorAxisNm);
    const ChartSubject chart{session, earth};
    if (Suffix(file) == "png") return WritePicture(file, chart);
    if (Suffix(file) == "svg") return WriteDrawing(file, chart);
    bool drawn = false;
    const Failure failure =
        WritePdf(file, "Position chart by Merov", QPageLayout::Landscape, [&drawn, &chart](platform::PrintJob& job) {
            drawn = DrawChartPage(job, chart);
            if (drawn) job.EndDoc();
        });
    return failure || drawn ? failure : QString();
}

} // namespace merov::output
