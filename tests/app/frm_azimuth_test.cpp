#include "app/frm_azimuth.h"

#include "app/frm_star_fix_wizard.h"
#include "ephemeris/astro_lib.h"
#include "numeric/inout_lib.h"
#include "platform/masked_edit.h"
#include "platform/time_picker.h"
#include "support/fake_clock.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

/// The form, typed and clicked. The place of Vega and its bearing are those of ERFA, from the place and the motion
/// of the Hipparcos catalogue: GHA 290°36'.00, declination 38°46'.98 N, bearing 67°.199.

namespace merov::app
{
namespace
{

const QString Blank = "__°__'._ _ ___°__'._ _ ___°._ ___°._ ___°._ ___°._";
const QColor Green(0, 255, 0);

/// The form beside its window, at 21 May 2004, 22:10 GMT.
class FrmAzimuthTest : public testing::Test
{
protected:
    FrmAzimuthTest()
    {
        ephemeris::SetDataFolder(MEROV_RUN_DIR);
        window.show();
        form.OnClosed = [this] { ++closed; };
        Open();
    }
    ~FrmAzimuthTest() override { numeric::SetDecimalSeparator("."); }

    void Open()
    {
        form.Open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    template <class Control = QWidget>
    Control& Find(const char* name)
    {
        return *form.findChild<Control*>(name);
    }
    void Click(const char* name)
    {
        QTest::mouseClick(&Find(name), Qt::LeftButton);
        QTest::qWait(0);
    }
    /// Types into fields from their beginning, each left by Tab: "mskLat 45300n, ...".
    void Type(const QString& entries)
    {
        for (const QString& entry : entries.split(", ")) {
            Find(entry.section(' ', 0, 0).toUtf8()).setFocus();
            QTest::keyClick(form.focusWidget(), Qt::Key_Home);
            QTest::keyClicks(form.focusWidget(), entry.section(' ', 1));
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
        }
    }
    void EnterVega()
    {
        Type("cboBody VEG, mskLat 45300n, mskLong 008150w, mskCourse(0) 0650, mskCourse(1) 3590, mskCourse(2) 0045");
    }
    QString Entries()
    {
        QStringList texts;
        for (const char* name : {"mskLat", "mskLong", "mskCourse(0)", "mskCourse(1)", "mskCourse(2)", "mskVariation"})
            texts += Find<platform::MaskedEdit>(name).Text();
        return texts.join(' ');
    }
    /// What the results show, those that are hidden left out.
    QString Results()
    {
        QStringList texts;
        for (const char* name : {"lblGHA", "lblLHA", "lblDecl", "lblTrueBearing", "lblErrg(0)", "lblErrg(1)",
                                 "lblTrueCourse(0)", "lblTrueCourse(1)", "lblErrc(0)", "lblErrc(1)", "lblDev"})
            if (Find(name).isVisible()) texts += Find<QLabel>(name).text();
        return texts.join('|');
    }
    QString Focus() { return form.focusWidget()->objectName(); }
    QList<FrmStarFixWizard*> Tables()
    {
        QList<FrmStarFixWizard*> shown;
        for (QWidget* child : window.findChildren<QWidget*>())
            if (auto* table = dynamic_cast<FrmStarFixWizard*>(child); table && table->isVisible()) shown += table;
        return shown;
    }

    test::FakeClock clock{38128.0 + 22.0 / 24.0 + 10.0 / 1440.0};
    test::ScreenBoxes boxes;
    QWidget window;
    FrmAzimuth form{&window};
    int closed = 0;
};

TEST_F(FrmAzimuthTest, BearingErrorsAndDeviation)
{
    const QSize size = form.sizeHint();
    EnterVega();
    for (const char* name : {"cboBody", "mskLat", "mskCourse(2)"})
        EXPECT_EQ(platform::FieldColour(Find(name)), Green) << name;
    Find("mskVariation").setFocus();
    QTest::keyClicks(&Find("mskVariation"), "5");
    EXPECT_EQ(Results(), "");
    QTest::keyClick(form.focusWidget(), Qt::Key_C, Qt::AltModifier); // leaves the field
    const QString place = "290°36'.0|282°21'.0|38°47'.0 N|067°.2|+ 2°.2|+ 2°.2|361°.2|361°.2| - 3°.3| - 3°.3|";
    EXPECT_EQ(Results(), place + "+ 1°.7");
    EXPECT_EQ(Entries(), "45°30'.0 N 008°15'.0 W 065°.0 359°.0 004°.5 005°.0");
    Click("optEW(0)");
    EXPECT_EQ(Results(), place + "+ 1°.7");
    Click("cmdCompute");
    EXPECT_EQ(Results(), place + " - 8°.3");
    EXPECT_EQ(form.sizeHint(), size);
    Click("cmdEraseObsPos(1)");
    Click("cmdCompute");
    EXPECT_EQ(boxes.TakeOne().substr(0, 26), "Missing latitude/longitude");
    EXPECT_EQ(Focus() + Results(), "cmdCompute" + place + " - 8°.3");
    Click("cmdErase");
    EXPECT_EQ(Entries() + Results(), Blank);
    EXPECT_EQ(platform::FieldColour(Find("cboBody")), platform::FieldColour(Find("mskLat")));
}

TEST_F(FrmAzimuthTest, TabWalksAsTheSumsAreRead)
{
    QStringList names;
    for (int i = 0; i < 15; ++i) {
        names += Focus();
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(names.join(' '),
              "cboBody dtpTime mskLat cmdEraseObsPos(0) mskLong cmdEraseObsPos(1) mskCourse(0) "
              "mskCourse(1) mskCourse(2) mskVariation optEW(1) cmdCompute cmdErase cmdWhatIsUp cmdEnd");
}

TEST_F(FrmAzimuthTest, ARefusedReadingKeepsTheFocusButForErasing)
{
    EnterVega();
    Find("mskCourse(1)").setFocus();
    for (const char* button : {"cmdCompute", "optEW(0)", "cmdWhatIsUp", "cmdEnd"}) {
        QTest::keyClick(form.focusWidget(), Qt::Key_Home);
        QTest::keyClicks(form.focusWidget(), "3601");
        Click(button);
        EXPECT_EQ(boxes.TakeOne(), " Error in input data|Bearing or heading > 360°") << button;
        EXPECT_EQ(Focus(), "mskCourse(1)");
        EXPECT_EQ(Find<platform::MaskedEdit>("mskCourse(1)").Text(), "360°._");
    }
    EXPECT_TRUE(form.isVisible() && Tables().isEmpty() && Find<QAbstractButton>("optEW(1)").isChecked());
    QTest::keyClicks(form.focusWidget(), "3601");
    Click("cmdErase");
    Click("cmdEnd");
    EXPECT_FALSE(form.isVisible());
}

TEST_F(FrmAzimuthTest, ShowsTheSkyOfItsTimeAndPlace)
{
    Click("cmdWhatIsUp");
    EXPECT_EQ(boxes.TakeOne().substr(0, 30), "Missing latitude and longitude");
    EXPECT_EQ(Tables().size(), 0);
    Type("mskLong 000010e");
    Click("cmdWhatIsUp");
    ASSERT_EQ(Tables().size(), 1);
    EXPECT_NEAR(Tables()[0]->findChild<platform::TimePicker*>("dtpRealTime")->Value(), 38128.0 + 22.0 / 24.0, 1e-6);
    QString asked;
    form.OnHelp = [&] { asked += "help "; };
    form.OnCaptureTime = [&] { asked += "time"; };
    Tables()[0]->OnHelp();
    Tables()[0]->OnCaptureTime();
    EXPECT_EQ(asked, "help time");
    form.activateWindow();
    Click("cmdWhatIsUp");
    EXPECT_EQ(Tables().size(), 1) << "in place of the former";
    Click("cmdEnd");
    EXPECT_EQ(Tables().size(), 0);
}

TEST_F(FrmAzimuthTest, EndErasesAndTheFrameDoesNot)
{
    EnterVega();
    const QString entries = Entries();
    Click("cmdWhatIsUp");
    form.close();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(Tables().size(), 0);
    Open();
    EXPECT_EQ(Entries(), entries);
    EXPECT_EQ(Find<QComboBox>("cboBody").currentText(), "VEGA");
    Click("cmdEnd");
    EXPECT_EQ(closed, 2);
    form.End();
    form.close();
    EXPECT_EQ(closed, 2) << "once for each closing";
    clock.Advance(7200.0);
    numeric::SetDecimalSeparator(",");
    Open();
    EXPECT_EQ(Entries(), QString(Blank).replace('.', ','));
    EXPECT_NEAR(Find<platform::TimePicker>("dtpTime").Value(), 38129.0, 1e-6);
    EXPECT_EQ(Focus(), "cboBody");
    Type("mskLat 45300s, mskLong 008150w, mskCourse(0) 1005");
    Click("cmdCompute");
    EXPECT_EQ(Entries(), "45°30',0 S 008°15',0 W 100°,5 ___°,_ ___°,_ 000°,0");
}

} // namespace
} // namespace merov::app
