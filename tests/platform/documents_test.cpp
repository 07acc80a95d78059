#include "platform/rtf_reader.h"
#include "support/qt_text.h"

#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextList>
#include <QUrl>

#include <gtest/gtest.h>

#include <functional>

/// The documents that lie beside the program: the templates of its reports, and the About text.

namespace merov::platform
{
namespace
{

using Document = std::unique_ptr<QTextDocument>;

Document Open(const char* name)
{
    RtfReading reading = ReadRtfFile(QStringLiteral(MEROV_RUN_DIR "/") + name);
    if (const QString* wrong = std::get_if<QString>(&reading)) {
        ADD_FAILURE() << name << ": " << wrong->toStdString();
        return std::make_unique<QTextDocument>();
    }
    return std::move(std::get<Document>(reading));
}

/// The text of all letters whose format fulfils a wish, a bar behind each piece.
QString TextWhere(const QTextDocument& document, const std::function<bool(const QTextCharFormat&)>& wish)
{
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece)
            if (wish(piece.fragment().charFormat())) text += piece.fragment().text() + "|";
    }
    return text;
}

const auto IsHeading = [](const QTextCharFormat& f) { return f.fontWeight() == QFont::Bold && f.fontUnderline(); };
const auto IsBlue = [](const QTextCharFormat& f) { return f.foreground().color() == QColor(0, 0, 255); };
const auto IsCoded = [](const QTextCharFormat& f) { return f.fontFamilies() == QStringList("Courier New"); };

TEST(Documents, NumericResultsHaveTheirLines)
{
    const Document document = Open("NumResults.rtf");
    const QStringList lines{
        "\uFFFCAstronomic position by Merov",
        "",
        "Position:",
        "",
        "The most probable position on § is",
        "Lat § and Long §",
        "with an ellipse of § % probability of",
        "  NS ½ axe = § nautical miles and",
        "  EW ½ axe = § nautical miles.",
        "The circle of equivalent probability has a radius of § nautical miles.",
        "The estimated position on § was",
        "Lat est. § and Long est. §.",
        "",
        "Observer motion:",
        "",
        "§",
        "",
        "Statistics:",
        "",
        "The program found a solution after § iterations.",
        "The weight given to the observations after statistic analysis is",
        "(from not valid 0 % to 100 % certainty):",
        "§",
        "The standard deviations for the § solutions is:",
        "Lat § ± §",
        "Long § ± §",
        "§.",
        "",
        "Conditions of the observations:",
        "",
        "Height of observer eye: § m ↔ § feet.",
        "Air temperature: § °C ↔ § °F.",
        "Water temperature: § °C ↔ § °F.",
        "Atmospheric pressure: § mbars (hPa) ↔ § inches of Hg.",
        "§",
        "Details:",
        "",
        "Follow the detailed results for every observation computed",
        "§ on §:",
        "Lat est. § and Long est. §.",
        "The main algorithm of Merov does not use these results.",
        "They are only provided for comparison with manual calculations.",
        "",
        "§",
    };
    EXPECT_EQ(document->toPlainText().count(u'§'), 33);
    ASSERT_EQ(document->blockCount(), lines.size());
    for (int line = 0; line < lines.size(); ++line)
        EXPECT_EQ(document->findBlockByNumber(line).text(), lines[line]) << "line " << line + 1;
}

TEST(Documents, NumericResultsHaveTheirFormats)
{
    const Document document = Open("NumResults.rtf");
    EXPECT_EQ(TextWhere(*document, IsHeading),
              "Position:|Observer motion:|Statistics:|Conditions of the observations:|Details:|");
    EXPECT_EQ(TextWhere(*document, [](const auto& f) { return f.fontWeight() == QFont::Bold || f.fontUnderline(); }),
              TextWhere(*document, IsHeading));
    EXPECT_EQ(TextWhere(*document, IsBlue), "most probable position|ellipse of § % probability|circle of equivalent "
                                            "probability|weight given to the observations|standard deviations|");
    EXPECT_EQ(
        TextWhere(*document, [](const auto& f) { return f.verticalAlignment() == QTextCharFormat::AlignSubScript; }),
        "est.|est.|est.|est.|");
    EXPECT_EQ(TextWhere(*document, [](const auto& f) { return f.fontPointSize() != 12.0 && !f.isImageFormat(); }),
              "Astronomic position by Merov|");
    EXPECT_EQ(TextWhere(*document, [](const auto& f) { return f.fontPointSize() == 10.0; }),
              "Astronomic position by Merov|");
    EXPECT_EQ(TextWhere(*document,
                        [](const auto& f) { return f.fontFamilies() != QStringList("Arial") && !f.isImageFormat(); }),
              "");

    QTextCursor cursor(document.get());
    cursor.setPosition(1);
    const QTextImageFormat picture = cursor.charFormat().toImageFormat();
    EXPECT_LE(picture.height(), 32.0);
    const QImage image = document->resource(QTextDocument::ImageResource, QUrl(picture.name())).value<QImage>();
    EXPECT_GE(image.height(), 2.0 * picture.height()); // crisp on screens of twice the density
    EXPECT_NEAR(image.width() / picture.width(), image.height() / picture.height(), 1e-9);
}

TEST(Documents, SailingReportHasItsMarkersBehindTheirLabels)
{
    const Document document = Open("CalcWP.rtf");
    QStringList lines;
    for (const QString& line : document->toPlainText().split(u'\n'))
        if (line.contains(u'§')) lines << line;
    const QStringList expected{"Reference ellipsoid: §",
                               "Departure: Lat § and Long §",
                               "Arrival: Lat § and Long §",
                               "Vertex: Lat § and Long §",
                               "§",  // where the vertex is
                               "§§", // a composite track, which may be missing, and the distances
                               "§"}; // the waypoints
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(lines.join("").count(u'§'), 11);
    EXPECT_EQ(document->lastBlock().text(), "§");

    // Above columns of 10, 11, 6, 8, 8 and 8 letters.
    const QString columns = "Latitude   Longitude   Course   Distance   Dist run To go";
    EXPECT_EQ(document->lastBlock().previous().text(), columns);
    EXPECT_EQ(columns.indexOf("Longitude"), 10 + 1);
    EXPECT_EQ(columns.indexOf("Course"), 10 + 1 + 11 + 1);
    EXPECT_EQ(columns.indexOf("Distance"), 10 + 1 + 11 + 1 + 6 + 3);
    EXPECT_EQ(columns.indexOf("Dist run"), 10 + 1 + 11 + 1 + 6 + 3 + 8 + 3);
    EXPECT_EQ(columns.indexOf("To go"), 10 + 1 + 11 + 1 + 6 + 3 + 8 + 3 + 8 + 1);
    EXPECT_EQ(TextWhere(*document, [](const auto& f) { return IsCoded(f) && f.fontPointSize() == 10.0; }),
              columns + "|");
    EXPECT_EQ(TextWhere(*document, IsHeading), "Positions:|Track and distances:|Waypoints:|");
}

TEST(Documents, AboutTextSaysWhatTheProgramIs)
{
    const Document document = Open("InfoProg.rtf");
    const QString text = document->toPlainText();
    for (const char* said : {"Merov 1.2", "most probable position", "An aid, not an authority", "MIT licence"})
        EXPECT_TRUE(text.contains(said, Qt::CaseInsensitive)) << said;
    int bullets = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
        bullets += block.textList() != nullptr;
    EXPECT_EQ(bullets, 4);
    EXPECT_FALSE(text.contains(u'\uFFFD'));
}

} // namespace
} // namespace merov::platform
