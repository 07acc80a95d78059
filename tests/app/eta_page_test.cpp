#include "app/eta_page.h"

#include "numeric/inout_lib.h"
#include "output/print_lib.h"
#include "platform/masked_edit.h"
#include "platform/overlay_grid.h"
#include "platform/spin_button.h"
#include "support/fake_clock.h"
#include "support/fake_printers.h"
#include "support/pdf_tools.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"

#include <QComboBox>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace merov;

namespace
{

const std::string MinAboveMax = " Error in input data|Your minimum speed is greater than the maximum speed.";

/// Boxes that stay for a while, in which a mouse button that is down stays down.
class SlowBoxes : public test::ScreenBoxes
{
public:
    numeric::BoxAnswer Show(const numeric::Box& box) override
    {
        QTest::qWait(Milliseconds);
        return ScreenBoxes::Show(box);
    }
    int Milliseconds = 0;
};

class EtaPageTest : public testing::Test
{
protected:
    EtaPageTest()
    {
        Page.show();
        Page.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Page));
        Page.Start({}, 0.0);
    }

    template <class Control = QWidget>
    Control& Get(const char* name)
    {
        auto* control = dynamic_cast<Control*>(Page.findChild<QWidget*>(name));
        if (control == nullptr) throw std::logic_error(name);
        return *control;
    }
    QString Shown(const char* field) { return Get<platform::MaskedEdit>(field).Text(); }
    void Click(const char* name) { QTest::mouseClick(&Get(name), Qt::LeftButton); }
    QString Focus() const { return Page.focusWidget()->objectName(); }

    /// Types from the place where a field puts its cursor.
    void Type(const char* field, const char* keys)
    {
        Get(field).setFocus();
        QTest::keyClicks(Page.focusWidget(), keys);
    }
    QString Row(int row) const { return Table.Text(row, 0) + '|' + Table.Text(row, 1) + '|' + Table.Text(row, 2); }

    test::FakeClock Clock{38128.99}; // 21 May 2004, 23:45
    SlowBoxes Boxes;
    numeric::LastError Journal;
    app::EtaPage Page{nullptr, Journal};
    platform::OverlayGrid& Table = Page.Table();
};

TEST_F(EtaPageTest, TypedEntriesGiveTheTable)
{
    QTest::keyClick(&Get("cboGMT(0)"), Qt::Key_Up); // GMT +01
    Type("mskDTG", "00030.00");
    QTest::keyClick(&Page, Qt::Key_C, Qt::AltModifier);
    ASSERT_EQ(Table.Rows(), 1 + 29);
    EXPECT_TRUE(Table.isVisible());
    EXPECT_EQ(Row(0), QString("Speed|ETA in GMT        |ETA in LT           "));
    EXPECT_EQ(Row(1), QString("10.0|22 May 2004 01:00:00|22 May 2004 01:00:00"));
    EXPECT_EQ(Row(29), QString("24.0|21 May 2004 23:15:00|21 May 2004 23:15:00"));

    Get<QComboBox>("cboGMT(1)").setCurrentText("GMT +05 3/4");
    Click("optRound(1)");
    Type("mskInterv", "8.33"); // over the figures of "_0.50"
    Click("cmdCompute(2)");
    ASSERT_EQ(Table.Rows(), 1 + 3);
    EXPECT_EQ(Row(2), QString("18.33|21 May 2004 23:36:00|22 May 2004 05:24:00")); // 23:38, then 05:21
    EXPECT_EQ(Row(3), QString("24.0|21 May 2004 23:18:00|22 May 2004 05:06:00"));

    // A fresh start keeps zones and rounding.
    Page.Start("__120.0_", 55.5);
    EXPECT_TRUE(Table.isHidden());
    EXPECT_FALSE(Get("cmdAskPrint(1)").isEnabled());
    EXPECT_EQ(Shown("mskDTG") + Shown("mskInterv"), QString("__120.0__0.50"));
    Page.Compute();
    EXPECT_EQ(Row(1), QString("10.0|22 May 2004 10:00:00|22 May 2004 15:48:00"));

    numeric::SetDecimalSeparator(",");
    Page.InstallMasks();
    Page.Start({}, 12.546);
    Page.Compute();
    numeric::SetDecimalSeparator(".");
    EXPECT_EQ(Shown("mskDTG") + Row(2).left(5), QString("00012,5510,5|"));
}

TEST_F(EtaPageTest, ARefusedFieldKeepsTheFocusUntilItIsErased)
{
    Type("mskMinSpeed", "25");
    Click("cmdCompute(2)");
    EXPECT_EQ(Boxes.TakeOne(), MinAboveMax);
    EXPECT_EQ(Focus() + Shown("mskMinSpeed"), QString("mskMinSpeed_25._"));
    EXPECT_TRUE(Table.isHidden());
    Get("mskMaxSpeed").setFocus();
    Click("cmdErase(16)");
    EXPECT_EQ(Focus() + Shown("mskMinSpeed"), QString("mskMinSpeed_10.0"));

    Type("mskMaxSpeed", "10"); // no range is left for an interval
    Type("mskInterv", "1");
    Click("cmdCompute(2)");
    EXPECT_EQ(Boxes.TakeOne(), " Error in input data|Your speed interval is too big.");
    Page.Compute();
    const std::string box = Boxes.TakeOne();
    EXPECT_TRUE(box.starts_with(" ERROR REPORT|An error occured in the RL/GC/ETA subroutine.|")) << box;
    EXPECT_TRUE(box.ends_with("|Division by zero.")) << box;
    EXPECT_TRUE(Table.isHidden());
    Click("cmdErase(14)");
    Click("cmdCompute(2)");
    EXPECT_EQ(Table.Rows(), 1 + 29);
}

TEST_F(EtaPageTest, AnArrowHeldDownTellsOnce)
{
    Type("mskMinSpeed", "23");
    Boxes.Milliseconds = 500;
    QToolButton& arrow = Get<platform::SpinButton>("updMinSpeed").UpArrow();
    QTest::mousePress(&arrow, Qt::LeftButton);
    QTest::qWait(1000);
    QTest::mouseRelease(&arrow, Qt::LeftButton);
    EXPECT_EQ(Boxes.TakeOne(), MinAboveMax);
    QTest::keyClick(Page.focusWidget(), Qt::Key_Down); // from the 24 that counts
    EXPECT_EQ(Shown("mskMinSpeed"), QString("_23.0"));
}

TEST_F(EtaPageTest, TheTableGoesOnPaperWhole)
{
    test::FakePrinters printers;
    Page.OnPrint = [&] { output::PrintGrid(Table, *printers.StartJob("ETA table", {}), {}, 0.77, 0.7); };
    Type("mskMaxSpeed", "14.3");
    Type("mskInterv", "0.10"); // a hair more than 43 intervals: the last row is blank
    Click("cmdCompute(2)");
    ASSERT_EQ(Table.Rows(), 1 + 45);
    EXPECT_EQ(Row(45), QString("||"));
    Click("cmdAskPrint(1)");
    ASSERT_EQ(printers.Jobs.size(), 1U);

    const QString file = printers.Jobs.back().File;
    EXPECT_EQ(test::PdfPages(file), 2);
    QStringList lines;
    for (int page = 1; page <= 2; ++page) {
        QStringList onPage = test::PdfText(file, page).split('\n');
        EXPECT_EQ(onPage.takeFirst().simplified(), QString("Speed ETA in GMT (Merov) ETA in LT (1.2)"));
        lines += onPage.filter("2004");
    }
    ASSERT_EQ(lines.size(), 44);
    for (int row = 1; row <= 44; ++row)
        EXPECT_EQ(lines[row - 1].simplified(), Row(row).replace('|', ' '));
    for (const test::PdfWord& word : test::PdfWords(file)) // within the margin of an inch on A4
        EXPECT_LT(word.Place.right(), 595.28 - 72.0) << word.Text.toStdString();
}

} // namespace
