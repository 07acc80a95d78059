#pragma once

#include <QProcess>
#include <QRectF>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <vector>

/// What other programs read in a PDF file.

namespace merov::test
{

/// What a tool of poppler prints.
inline QString PdfTool(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0)
        << tool.toStdString() << ": " << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The text of a page, its lines as they stand on paper.
inline QString PdfText(const QString& file, int page)
{
    const QString number = QString::number(page);
    return PdfTool("pdftotext", {"-layout", "-f", number, "-l", number, file, "-"});
}

inline int PdfPages(const QString& file)
{
    return QRegularExpression("Pages: +(\\d+)").match(PdfTool("pdfinfo", {file})).captured(1).toInt();
}

/// True if all fonts of the file are in it.
inline bool PdfFontsEmbedded(const QString& file)
{
    const QStringList lines = PdfTool("pdffonts", {file}).trimmed().split('\n').mid(2);
    for (const QString& line : lines)
        if (!line.contains(QRegularExpression(" yes (yes|no) +(yes|no) +\\d+ +\\d+$"))) return false;
    return !lines.isEmpty();
}

struct PdfWord {
    QString Text;
    int Page;
    QRectF Place; ///< points from the paper's corner
};

inline std::vector<PdfWord> PdfWords(const QString& file)
{
    std::vector<PdfWord> words;
    int page = 0;
    const QRegularExpression word("xMin=\"(.+)\" yMin=\"(.+)\" xMax=\"(.+)\" yMax=\"(.+)\">(.*)</word>");
    for (const QString& line : PdfTool("pdftotext", {"-bbox", file, "-"}).split('\n')) {
        if (line.contains("<page ")) page++;
        const QRegularExpressionMatch match = word.match(line);
        const auto number = [&match](int i) { return match.captured(i).toDouble(); };
        if (match.hasMatch())
            words.push_back({match.captured(5), page, {QPointF(number(1), number(2)), QPointF(number(3), number(4))}});
    }
    return words;
}

} // namespace merov::test
