#include "output/sailing_report.h"

#include "support/letter_look.h"
#include "support/qt_text.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextList>

#include <gtest/gtest.h>

namespace merov::output
{
namespace
{

const QString Template = MEROV_RUN_DIR "/CalcWP.rtf";

using sailing::Voyage;

Voyage VoyageOf(const sailing::VoyageInput& input, const sailing::Vertex& track, double total, double rhumbDistance)
{
    Voyage v;
    v.Input = input;
    v.Track = track;
    v.Total = total;
    v.RhumbCourse = 262.14;
    v.RhumbDistance = rhumbDistance;
    v.Period = 359.21;
    v.DepartureCourse = 287.46;
    v.ArrivalCourse = 5.04;
    return v;
}

Voyage Plain()
{
    return VoyageOf({48.5, -5.25, 40.5, -73.75}, {51.25, -30.5, 0.0, -1.0}, 2860.26, 2921.04);
}

Voyage Composite()
{
    Voyage v = VoyageOf({-33.5, 18.4, -37.8, 144.9, 50.0, 60.0}, {-60.5, 85.0, 0.0, 3003.0}, 4315.6, 4330.0);
    v.Composite = {true, -50.0, 64.1, 120.5, {1590.06, 2175.0, 550.54}, 90.0};
    v.Waypoints = {{-33.5, 18.4, 130.25, 1600.46, 0.0, 4333.46},
                   {-50.0, 64.1, 90.0, 2175.0, 1600.46, 2733.0},
                   {-50.0, 120.5, 45.04, 558.0, 3775.46, 558.0},
                   {-37.8, 144.9, 0.0, 0.0, 4333.46, 0.0}};
    v.Sum = 4333.46;
    v.Period = 360.0;
    return v;
}

platform::RichText Report(const Voyage& voyage, const QString& name = {}, int earth = 0)
{
    platform::RichText text;
    EXPECT_EQ(BuildSailingReport(text, Template, voyage, name, sailing::EllipsoidAt(earth)), std::nullopt);
    return text;
}

/// Holds the report, and behind it the outline, to a file of texts.
void ExpectTexts(const QString& expected, const Voyage& voyage, const QString& name, int earth)
{
    QString text = Report(voyage, name, earth).Document().toPlainText() + "\n----\n";
    for (const OutlineRow& row : SailingOutline(voyage, sailing::EllipsoidAt(earth)))
        text += QString("%1 %2\n").arg(row.Indent).arg(row.Text);
    QFile file(MEROV_SOURCE_DIR "/tests/output/expected/" + expected);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(text.replace(QRegularExpression(" +\n"), "\n"), QString::fromUtf8(file.readAll()));
}

TEST(SailingReport, ReadsWordForWordWithItsOutline)
{
    ExpectTexts("sailing_plain.txt", Plain(), "WGS 1984", sailing::DefaultEllipsoidIndex);
    ExpectTexts("sailing_composite.txt", Composite(), "Normal Sphere", sailing::NormalSphereIndex);

    Voyage failed = Plain(); // an interval whose waypoints a fault has ended
    failed.Input.LongInterval = 5.0;
    const QString text = Report(failed).Document().toPlainText();
    EXPECT_TRUE(text.contains("The total distance is 2860.3"));
    EXPECT_TRUE(text.contains("\nThe waypoints could not be computed.\n"));

    Voyage refused = Composite();
    refused.Refusal = sailing::VoyageRefusal::LimitBelowArrival;
    const auto rows = SailingOutline(refused, sailing::EllipsoidAt(0)), empty = EmptySailingOutline();
    EXPECT_EQ(rows[6].Text, "Distance 3003.0 nmiles");
    for (const std::size_t row : {0u, 2u, 8u, 10u, 14u})
        EXPECT_TRUE(rows[row].Text == empty[row].Text && rows[row].Indent == empty[row].Indent) << row;
}

TEST(SailingReport, LooksAsItShould)
{
    platform::RichText report = Report(Composite());
    int place = 0;
    for (const QString& part :
         QString("Great circle=Arial 13 bold|Positions:=Arial 11 bold underlined|33°30'.0 S=Arial 11|Composite "
                 "sailing:=Arial 11 bold underlined|The Vertex is=Arial 11|with a=Arial 11|The total=Arial "
                 "11|Latitude=Courier New 10 bold|33°30'.0 S=Courier New 10 #000000|50°00'.0 S=Courier New 10 "
                 "#0000ff|50°00'.0 S=Courier New 10 #000000|37°48'.0 S=Courier New 10 #0000ff|The period=Arial 11 "
                 "#000000|End of=Arial 11 italic underlined #000000")
             .split(u'|')) {
        const QString words = part.section(u'=', 0, 0);
        place = report.Find(words, place);
        ASSERT_GE(place, 0) << words.toStdString();
        QTextCursor cursor(&report.Document());
        cursor.setPosition(++place);
        EXPECT_EQ(test::LetterLook(cursor.charFormat()), part.section(u'=', 1)) << words.toStdString();
    }
    QString heading, waypoint;
    int bullets = 0;
    for (QTextBlock line = report.Document().begin(); line.isValid(); line = line.next()) {
        const QString text = line.text();
        const bool listed = text.startsWith("with a distance") || (text.contains(" S; ") && text.contains(" E"));
        bullets += listed;
        EXPECT_EQ(line.textList() != nullptr, listed) << text.toStdString();
        EXPECT_EQ(line.blockFormat().leftMargin(), listed ? 34.0 : 14.0) << text.toStdString();
        if (text.startsWith("Latitude ")) heading = text;
        if (heading.size() && text.contains("02733.0'")) waypoint = text;
    }
    EXPECT_EQ(bullets, 9);
    EXPECT_EQ(report.Document().lastBlock().blockFormat().alignment(), Qt::AlignHCenter);
    for (const QString& column :
         QString("Latitude=50°|Longitude=064|Course=090|Distance=021|Dist run=016|To go=027").split(u'|'))
        EXPECT_EQ(heading.indexOf(column.section(u'=', 0, 0)), waypoint.indexOf(column.section(u'=', 1)))
            << column.toStdString();
}

TEST(SailingReport, AFaultyTemplateChangesNothing)
{
    platform::RichText text;
    text.SetSelectedText("before");
    const auto said =
        BuildSailingReport(text, MEROV_RUN_DIR "/NumResults.rtf", Plain(), "", sailing::ActiveEllipsoid());
    EXPECT_TRUE(said && said->contains("has 33 markers § in place of 11."));
    EXPECT_EQ(text.Document().toPlainText(), "before");
}

} // namespace
} // namespace merov::output
