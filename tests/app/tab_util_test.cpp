#include "app/program.h"

#include "platform/masked_edit.h"
#include "platform/outline_list.h"
#include "platform/rich_text_box.h"
#include "sailing/ellipsoid.h"
#include "support/pdf_tools.h"

#include <QComboBox>
#include <QLabel>

#include <gtest/gtest.h>

/// The pages of the sailings, typed and clicked. Expected figures are those of GeographicLib on WGS 1984.

namespace merov::app
{
namespace
{

using platform::MaskedEdit;

const QStringList RhumbFields{"mskLat(0)", "mskLong(0)", "mskLat(1)", "mskLong(1)", "mskCourse(1)", "mskDist"};

class TabUtilTest : public test::Program
{
protected:
    void Open(const QString& menu)
    {
        if (Window == nullptr) Start();
        Trigger(menu);
    }
    ~TabUtilTest() override { sailing::SelectEllipsoid(sailing::DefaultEllipsoidIndex); }

    MaskedEdit& Field(const QString& name) { return Find<MaskedEdit>(name); }

    /// Types into fields from their beginning, each left by Tab: "mskLat(0) 38300n, ...".
    void Type(const QString& entries)
    {
        for (const QString& entry : entries.split(", ")) {
            Field(entry.section(' ', 0, 0)).setFocus();
            QTest::keyClick(Window->focusWidget(), Qt::Key_Home);
            QTest::keyClicks(Window->focusWidget(), entry.section(' ', 1));
            QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
        }
    }

    /// The texts of the rhumb line's fields, results in brackets.
    QString RhumbTexts()
    {
        QStringList texts;
        for (const QString& name : RhumbFields) {
            const bool yellow = Field(name).palette().color(QPalette::Base) == QColor(255, 255, 0);
            texts += yellow ? '[' + Field(name).Text() + ']' : Field(name).Text();
        }
        return texts.join(' ');
    }
    bool Stopped() { return Find<QWidget>("imgStopCompute").isVisible(); }
    bool Shows(const char* name) { return Find<QWidget>(name).isVisible(); }

    QString Outline()
    {
        auto& list = Find<platform::OutlineList>("outGCRes");
        QStringList rows;
        for (int i = 0; i < list.count(); ++i)
            if (!list.item(i)->isHidden()) rows += list.item(i)->text().trimmed();
        return rows.join('|');
    }
};

TEST_F(TabUtilTest, RhumbLineComesByItselfAtTheFourthField)
{
    Start();
    Click("picRLGC");
    EXPECT_TRUE(Stopped());
    EXPECT_EQ(Window->focusWidget()->objectName(), "mskLat(0)");
    Type("mskLat(0) 38300n, mskLong(0) 009300w, mskLat(1) 40300n, mskLong(1) 073480w");
    EXPECT_EQ(RhumbTexts(), "38°30'.0 N 009°30'.0 W 40°30'.0 N 073°48'.0 W [272°.3] [02988.37]");
    EXPECT_FALSE(Stopped());
    // Passing a result makes it an entry, and five are too many.
    Field("mskCourse(1)").setFocus();
    QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Stopped());
    // From then on only the button computes; a distance without a course never does.
    Click("cmdErase(4)");
    EXPECT_FALSE(Stopped());
    Type("mskLat(1) 38300n");
    EXPECT_EQ(Field("mskDist").Text(), "02988.37");
    QTest::keyClick(Window.get(), Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(RhumbTexts().endsWith(" 38°30'.0 N 073°48'.0 W [270°.0] [03028.65]")) << RhumbTexts().toStdString();
    Click("cmdErase(6)");
    EXPECT_EQ(RhumbTexts(), "__°__'._ _ ___°__'._ _ __°__'._ _ ___°__'._ _ ___°._ _____.__");
    Type("mskLat(0) 38300n, mskLong(0) 009300w, mskLat(1) 40300n, mskDist 0012000");
    EXPECT_TRUE(Stopped());
}

TEST_F(TabUtilTest, RhumbLineOfACourse)
{
    const std::pair<const char*, const char*> ways[] = {
        {"mskCourse(1) 0000, mskDist 0006000", "[51°00'.0 N] [010°00'.0 W] 000°.0 00060.00"},
        {"mskCourse(1) 3150, mskLat(1) 52000n", "52°00'.0 N [013°10'"},
        {"mskCourse(1) 2700, mskLong(1) 012000w", "[50°00'.0 N] 012°00'.0 W 270°.0 [00077.43]"},
    };
    Open("mnuUtilRL");
    for (const auto& [typed, wanted] : ways) {
        Click("cmdErase(6)");
        Type("mskLat(0) 50000n, mskLong(0) 010000w, " + QString(typed));
        const QString texts =
            RhumbTexts().section(' ', 4).replace(QRegularExpression("51°00'.\\d|50°59'.\\d"), "51°00'.0");
        EXPECT_TRUE(texts.startsWith(wanted)) << texts.toStdString();
    }
    Type("mskLat(0) 95000n");
    EXPECT_EQ(Boxes.TakeOne(), " Error in input data|Latitude > 90°.");
    EXPECT_EQ(Window->focusWidget()->objectName(), "mskLat(0)");
    Type("mskLat(0) 50000n, mskCourse(1) 3610");
    EXPECT_EQ(Boxes.TakeOne(), " Error in input data|Course > 360°");
    EXPECT_EQ(Field("mskCourse(1)").Text(), "361°._");
}

TEST_F(TabUtilTest, TrackTurnsRound)
{
    Open("mnuUtilRL");
    Type("mskLat(0) 38300n, mskLong(0) 009300w");
    Click("cmdShift");
    EXPECT_EQ(RhumbTexts(), "__°__'._ _ ___°__'._ _ 38°30'.0 N 009°30'.0 W ___°._ _____.__");
    Type("mskLat(0) 40300n, mskLong(0) 073480w");
    EXPECT_TRUE(RhumbTexts().endsWith("[092°.3] [02988.37]")) << RhumbTexts().toStdString();
}

TEST_F(TabUtilTest, GreatCircleWithLimitAndWaypoints)
{
    Open("mnuUtilGC");
    Click("cmdCompute(1)");
    EXPECT_EQ(Boxes.TakeOne(), " Missing data|Departure and/or arrival position not complete. Please correct.");
    Type("mskLat(2) 38300n, mskLong(2) 009300w, mskLat(3) 38300n, mskLong(3) 009300w");
    Click("cmdCompute(1)");
    EXPECT_EQ(Boxes.TakeOne(), " Departure = Arrival ?|Same departure and arrival positions. Please correct.");
    Type("mskLat(3) 40300n, mskLong(3) 073480w");
    EXPECT_FALSE(Find<QWidget>("cmdAskPrint(0)").isEnabled());
    QTest::keyClick(Window.get(), Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(Outline(), "GC Distance = 2920.3|Vertex latitude 44°18'.8 N|Latitude 44°18'.8 N|Longitude 044°52'.4 W|"
                         "Distance 1621.4 nmiles|Courses|Departure = 293°.9|Arrival = 250°.3");
    EXPECT_TRUE(Shows("rtfCalcWP") && Shows("outGCRes") && !Shows("fraEllipsoid(1)"));

    Type("mskLat(4) 4200, mskLong(4) 10");
    Click("cmdCompute(1)");
    EXPECT_EQ(Find<QLabel>("lblNS").text(), "N");
    EXPECT_TRUE(Outline().contains("Composite Sailing > Lmax|First GC|38°30'.0 N; 009°30'.0 W|42°00'.0 N; 037°23'"));
    const QString report = Find<platform::RichTextBox>("rtfCalcWP").toPlainText();
    EXPECT_TRUE(report.contains("The Vertex is higher than the maximum allowed latitude: 42°00'.0 N"));
    EXPECT_TRUE(report.trimmed().endsWith("End of great circle calculation by Merov 1.2"));

    // A limit below an end: its box, its field, and the old result stays.
    Type("mskLat(4) 3900");
    Click("cmdCompute(1)");
    EXPECT_EQ(Boxes.TakeOne(), " Error in input data|The maximum latitude is smaller than the arrival latitude.");
    EXPECT_EQ(Field("mskLat(4)").Text(), "39°0_'");
    EXPECT_EQ(Window->focusWidget()->objectName(), "mskLat(4)");
    Click("cmdErase(13)");
    EXPECT_TRUE(!Shows("rtfCalcWP") && !Shows("outGCRes") && Shows("fraEllipsoid(1)"));
    EXPECT_EQ(Field("mskLong(4)").Text(), "__°_0'");
    Type("mskLong(4) 00");
    EXPECT_EQ(Boxes.TakeOne(), " Error in input data|You entered a longitude interval of 00°00'...");
}

TEST_F(TabUtilTest, PagesExchangePositionsAndDistance)
{
    Open("mnuUtilRL");
    Type("mskLat(0) 38300n, mskLong(0) 009300w, mskLat(1) 40300n, mskLong(1) 073480w");
    Click("cmdNextTabUtil(0)");
    EXPECT_EQ(Field("mskLat(2)").Text() + Field("mskLong(3)").Text(), "38°30'.0 N073°48'.0 W");
    Type("mskLat(3) 41300n");
    Click("cmdNextTabUtil(1)");
    EXPECT_EQ(Field("mskDTG").Text(), "02988.37"); // of the rhumb line, a result
    Click("cmdPrevTabUtil(1)");
    EXPECT_EQ(Field("mskLat(3)").Text(), "40°30'.0 N"); // the rhumb line's once more
    Click("cmdEndTabUtil(1)");
    EXPECT_EQ(InView(), test::MainView);
}

TEST_F(TabUtilTest, EllipsoidIsChosenOnTheWay)
{
    Open("mnuUtilRL");
    EXPECT_EQ(Find<QLabel>("lblDistance(1)").text(), "[ nautical miles ]");
    QTest::mouseDClick(&Find<QWidget>("lblChoosenEllipsoid(1)"), Qt::LeftButton);
    QTest::qWait(0);
    ASSERT_TRUE(Shows("tabOptions"));
    Find<QComboBox>("cboEllipsoid").setCurrentIndex(sailing::NormalSphereIndex);
    Click("cmdEndTabOptions(0)");
    EXPECT_TRUE(Shows("tabUtil"));
    EXPECT_EQ(Find<QLabel>("lblDistance(1)").text(), "[ geographical miles ]");
    EXPECT_EQ(Find<QLabel>("lblChoosenEllipsoid(1)").text().trimmed(), "Normal Sphere");
    Trigger("mnuUtilGC");
    EXPECT_EQ(Find<QLabel>("lblChoosenEllipsoid(4)").text().trimmed(), "Normal Sphere");
}

TEST_F(TabUtilTest, ReportAndTableArePrinted)
{
    Printers.Listed = {"Bridge"};
    Open("mnuUtilGC");
    Type("mskLat(2) 38300n, mskLong(2) 009300w, mskLat(3) 40300n, mskLong(3) 073480w, mskLong(4) 02");
    Click("cmdCompute(1)");
    Click("cmdAskPrint(0)");
    Trigger("mnuUtilETA");
    Click("cmdCompute(2)");
    Click("cmdAskPrint(1)");
    ASSERT_EQ(Printers.Jobs.size(), 2U);
    EXPECT_TRUE(
        test::PdfText(Printers.Jobs[0].File, 1).contains("The total theoretical distance is 2920.3 nautical miles"));
    EXPECT_TRUE(test::PdfText(Printers.Jobs[1].File, 1).contains("ETA in GMT (Merov)"));
}

} // namespace
} // namespace merov::app
