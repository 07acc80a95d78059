#include "output/print_lib.h"

#include "platform/twips.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPrinter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextList>

#include <algorithm>
#include <memory>
#include <vector>

namespace merov::output
{
namespace
{

constexpr double LeastText = 1440.0;   // twips; room for text that a small paper has in any case
constexpr double DiscPart = 1.0 / 3.0; // of a line's height

/// Turns the indents of paragraphs from pixels into a printer's dots, which a layout for the printer leaves
/// as they are; the other measures it turns itself.
void ScaleIndents(QTextDocument& text, double dotsPerPixel)
{
    for (QTextBlock block = text.firstBlock(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.setLeftMargin(format.leftMargin() * dotsPerPixel);
        format.setRightMargin(format.rightMargin() * dotsPerPixel);
        format.setTextIndent(format.textIndent() * dotsPerPixel);
        QTextCursor(block).setBlockFormat(format);
    }
}

/// A line of the laid out text.
struct PlacedLine {
    int Page; ///< from 0
    QTextBlock Paragraph;
    int Number; ///< within its paragraph, from 0
};

/// The lines with the pages they stand on. A line goes to one page, whole.
/// @return up to the last line that shows something
std::vector<PlacedLine> PlaceLines(const QTextDocument& text)
{
    std::vector<PlacedLine> lines;
    std::size_t filled = 0;
    for (QTextBlock block = text.firstBlock(); block.isValid(); block = block.next()) {
        const QTextLayout& layout = *block.layout();
        for (int i = 0; i < layout.lineCount(); i++) {
            const double middle = layout.position().y() + layout.lineAt(i).rect().center().y();
            lines.push_back({static_cast<int>(middle / text.pageSize().height()), block, i});
        }
        if (!block.text().trimmed().isEmpty()) filled = lines.size();
    }
    lines.resize(filled);
    return lines;
}

/// The disc before the first line of a paragraph that belongs to a list.
void DrawDisc(QPainter& painter, const QTextBlock& paragraph, const QPaintDevice& device)
{
    const QFont font(paragraph.charFormat().font(), &device);
    const QFontMetricsF metrics(font, &device);
    const double size = metrics.lineSpacing() * DiscPart;
    const QPointF line = paragraph.layout()->position() + paragraph.layout()->lineAt(0).naturalTextRect().topLeft();
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawEllipse(QRectF(line.x() - metrics.horizontalAdvance(u' ') - size,
                               line.y() + (metrics.height() - size) / 2.0, size, size));
}

void DrawLine(QPainter& painter, const PlacedLine& line, const QPaintDevice& device)
{
    if (line.Number == 0 && line.Paragraph.textList()) DrawDisc(painter, line.Paragraph, device);
    painter.setPen(Qt::black);
    const QTextLayout& layout = *line.Paragraph.layout();
    layout.lineAt(line.Number).draw(&painter, layout.position());
}

} // namespace

int PrintRichText(const QTextDocument& text, platform::PrintJob& job, const PrintMargins& margins)
{
    const QRectF paper = job.Paper();
    const QPointF corner = paper.topLeft() + QPointF(job.Dots(margins.Left), job.Dots(margins.Top));
    const QSizeF room(std::max(paper.width() - job.Dots(margins.Left + margins.Right), job.Dots(LeastText)),
                      std::max(paper.height() - job.Dots(margins.Top + margins.Bottom), job.Dots(LeastText)));

    const std::unique_ptr<QTextDocument> copy(text.clone());
    ScaleIndents(*copy, job.Dots(platform::TwipsPerPixel));
    copy->documentLayout()->setPaintDevice(&job.Device());
    copy->setDocumentMargin(0.0);
    copy->setPageSize(room);

    // Line by line: a layout that draws a page itself puts lines of the next one below the margin, where
    // they are hidden but found by whoever searches the file.
    copy->documentLayout()->documentSize(); // lays out everything
    int page = 0;
    for (const PlacedLine& line : PlaceLines(*copy)) {
        for (; page < line.Page; page++)
            job.NewPage();
        QPainter& painter = job.Painter();
        painter.save();
        painter.translate(corner - QPointF(0.0, page * room.height()));
        DrawLine(painter, line, job.Device());
        painter.restore();
    }
    job.EndDoc();
    return page + 1;
}

} // namespace merov::output
