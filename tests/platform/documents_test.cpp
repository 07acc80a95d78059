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
    return std::move(std::get<Document>(reading)); // a refusal throws, and fails the test
}

/// The text of all letters whose format fulfils a wish, a bar behind each piece. Pictures are left out.
QString TextWhere(const QTextDocument& document, const std::function<bool(const QTextCharFormat&)>& wish)
{
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextCharFormat format = piece.fragment().charFormat();
            if (!format.isImageFormat() && wish(format)) text += piece.fragment().text() + "|";
        }
    return text;
}

const auto IsHeading = [](const QTextCharFormat& f) { return f.fontWeight() == QFont::Bold && f.fontUnderline(); };
const auto IsBlue = [](const QTextCharFormat& f) { return f.foreground().color() == QColor(0, 0, 255); };
const auto IsLow = [](const QTextCharFormat& f) { return f.verticalAlignment() == QTextCharFormat::AlignSubScript; };
const auto IsNotArial = [](const QTextCharFormat& f) { return f.fontFamilies() != QStringList("Arial"); };
const auto IsNotTwelve = [](const QTextCharFormat& f) { return f.fontPointSize() != 12.0; };
const auto IsCode = [](const QTextCharFormat& f) { return f.fontFamilies() == QStringList("Courier New"); };

TEST(Documents, NumericResultsHaveTheirLinesAndFormats)
{
    const Document document = Open("NumResults.rtf");
    const QString text =
        "\uFFFCAstronomic position by Merov\n\nPosition:\n\nThe most probable position on § is\nLat § and Long §\n"
        "with an ellipse of § % probability of\n  NS ½ axe = § nautical miles and\n  EW ½ axe = § nautical miles.\n"
        "The circle of equivalent probability has a radius of § nautical miles.\n"
        "The estimated position on § was\nLat est. § and Long est. §.\n\nObserver motion:\n\n§\n\n"
        "Statistics:\n\nThe program found a solution after § iterations.\n"
        "The weight given to the observations after statistic analysis is\n"
        "(from not valid 0 % to 100 % certainty):\n§\n"
        "The standard deviations for the § solutions is:\nLat § ± §\nLong § ± §\n§.\n\n"
        "Conditions of the observations:\n\nHeight of observer eye: § m ↔ § feet.\nAir temperature: § °C ↔ § °F.\n"
        "Water temperature: § °C ↔ § °F.\nAtmospheric pressure: § mbars (hPa) ↔ § inches of Hg.\n§\n"
        "Details:\n\nFollow the detailed results for every observation computed\n"
        "§ on §:\nLat est. § and Long est. §.\nThe main algorithm of Merov does not use these results.\n"
        "They are only provided for comparison with manual calculations.\n\n§";
    EXPECT_EQ(document->toPlainText(), text);
    EXPECT_EQ(text.count(u'§'), 33);

    EXPECT_EQ(TextWhere(*document, IsHeading),
              "Position:|Observer motion:|Statistics:|Conditions of the observations:|Details:|");
    EXPECT_EQ(TextWhere(*document, IsBlue), "most probable position|ellipse of § % probability|circle of equivalent "
                                            "probability|weight given to the observations|standard deviations|");
    EXPECT_EQ(TextWhere(*document, IsLow), "est.|est.|est.|est.|");
    EXPECT_EQ(TextWhere(*document, IsNotTwelve), "Astronomic position by Merov|");
    EXPECT_EQ(TextWhere(*document, IsNotArial), "");

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
    // The last four: where the vertex is, a composite track, which may be missing, the distances, the waypoints.
    EXPECT_EQ(document->toPlainText().split(u'\n').filter("§").join(u'\n'),
              "Reference ellipsoid: §\nDeparture: Lat § and Long §\nArrival: Lat § and Long §\nVertex: Lat § and Long "
              "§\n§\n§§\n§");
    EXPECT_EQ(document->lastBlock().text(), "§");
    // Above columns of 10, 11, 6, 8, 8 and 8 letters.
    const QString columns = "Latitude   Longitude   Course   Distance   Dist run To go";
    EXPECT_EQ(document->lastBlock().previous().text(), columns);
    EXPECT_EQ(TextWhere(*document, IsCode), columns + "|");
    EXPECT_EQ(TextWhere(*document, IsHeading), "Positions:|Track and distances:|Waypoints:|");
}

TEST(Documents, AboutTextSaysWhatTheProgramIs)
{
    const Document document = Open("InfoProg.rtf");
    const QString text = document->toPlainText();
    for (const char* said : {"Merov 1.2", "most probable position", "An aid, not an authority", "MIT licence"})
        EXPECT_TRUE(text.contains(said, Qt::CaseInsensitive)) << said;
    EXPECT_FALSE(text.contains(u'\uFFFD'));
    int bullets = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
        bullets += block.textList() != nullptr;
    EXPECT_EQ(bullets, 4);
}

} // namespace
} // namespace merov::platform
