#include "app/tab_options.h"
#include "numeric/inout_lib.h"
#include "sailing/ellipsoid.h"
#include "support/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace merov::app
{
namespace
{

class TabOptionsTest : public testing::Test
{
protected:
    TabOptionsTest()
    {
        options.FillEllipsoids();
        options.show();
        options.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&options));
    }
    ~TabOptionsTest() override
    {
        numeric::SetDecimalSeparator(".");
        sailing::SelectEllipsoid(sailing::DefaultEllipsoidIndex);
    }
    template <class Control>
    Control& The(const char* name)
    {
        auto* control = options.findChild<Control*>(name);
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }
    void Click(const char* button) { QTest::mouseClick(&The<QPushButton>(button), Qt::LeftButton); }

    FixInput input;
    TabOptions options{input};
};

TEST_F(TabOptionsTest, EachChoiceOfAnEllipsoidIsInForceAtOnce)
{
    auto& list = The<QComboBox>("cboEllipsoid");
    ASSERT_EQ(list.count(), 20);
    EXPECT_EQ(list.currentText(), "WGS 1984 - 1/298.257223560493");
    list.setFocus();
    QTest::keyClicks(&list, "No");
    EXPECT_EQ(list.currentText(), "Normal Sphere - 0");
    EXPECT_EQ(sailing::ActiveEllipsoid().InverseFlattening, 1e100);
    EXPECT_NEAR(sailing::ActiveEllipsoid().SemiMajorAxisNm, 3437.746770518, 5e-10);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(sailing::ActiveEllipsoidIndex(), 16);
    EXPECT_EQ(sailing::ActiveEllipsoid().InverseFlattening, 298.300000240870);

    numeric::SetDecimalSeparator(",");
    options.FillEllipsoids();
    EXPECT_EQ(list.count(), 20);
    EXPECT_EQ(list.currentText(), "WGS 1984 - 1/298,257223560493");
    EXPECT_EQ(sailing::ActiveEllipsoid().InverseFlattening, 298.257223560493);
}

TEST_F(TabOptionsTest, ButtonsAndLettersTurnThePagesToTheirEnds)
{
    EXPECT_EQ(options.currentIndex(), 0);
    Click("cmdNextTabOptions(0)");
    EXPECT_EQ(options.currentIndex(), 1);
    options.NextTab();
    EXPECT_EQ(options.currentIndex(), options.count() - 1);
    Click("cmdPrevTabOptions(0)");
    options.PrevTab();
    EXPECT_EQ(options.currentIndex(), 0);
    QTest::keyClick(&options, Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(options.currentIndex(), 1);

    int ends = 0;
    options.OnEnd = [&ends] { ++ends; };
    Click("cmdEndTabOptions(1)");
    QTest::keyClick(&options, Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(ends, 2);
}

TEST_F(TabOptionsTest, OneEstimatedPositionIsTheSessionsOption)
{
    std::vector<bool> reports;
    options.OnOneEstPos = [&reports](bool one) { reports.push_back(one); };
    options.ShowPage(1);
    auto& box = The<QCheckBox>("ch3OneEstPos(0)");
    EXPECT_FALSE(box.isChecked());
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_TRUE(input.Entry.OneEstPos);
    EXPECT_EQ(reports, std::vector<bool>{true});

    input.Entry.OneEstPos = false;
    options.ShowOneEstPos();
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(TabOptionsTest, NoTextIsCutOff)
{
    options.ShowPage(1);
    for (const QLabel* label : options.currentWidget()->findChildren<QLabel*>())
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
}

} // namespace
} // namespace merov::app
