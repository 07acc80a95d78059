#include "app/frm_azimuth.h"
#include "app/frm_star_fix_wizard.h"
#include "app/program.h"
#include "platform/help_window.h"
#include "platform/masked_edit.h"

#include <QTextBrowser>

namespace merov::test
{
namespace
{

/// The tools that stand beside the main window.
class ToolCommands : public Program
{
protected:
    QWidget& Form(const char* name)
    {
        for (QWidget* each : Window->findChildren<QWidget*>(name))
            if (each->isVisible()) return *each;
        throw std::logic_error(std::string("no form ") + name);
    }
    bool IsOpen(const char* name)
    {
        const QList<QWidget*> forms = Window->findChildren<QWidget*>(name);
        return std::any_of(forms.begin(), forms.end(), [](const QWidget* form) { return form->isVisible(); });
    }
    void Press(QWidget& form, const char* button)
    {
        QTest::mouseClick(form.findChild<QWidget*>(button), Qt::LeftButton);
        QTest::qWait(0);
    }
    QString ManualPage()
    {
        const auto* help = Window->findChild<platform::HelpWindow*>();
        return help == nullptr ? QString() : help->findChild<QTextBrowser*>()->source().fileName();
    }
    bool BarEnabled() { return Find<QWidget>("tlhWorking").isEnabled(); }
};

const QString WithoutThree = "panhGradient picStarFixWizard tlhWorking";

TEST_F(ToolCommands, TheAzimuthLocksTheMainScreenUntilItClosesByWhateverWay)
{
    Start();
    const QString off = Off();
    for (const char* way : {"cmdEnd", "frame"}) {
        Click("picAzimuth");
        EXPECT_EQ(InView(), WithoutThree);
        EXPECT_EQ(Off(), Sorted(off + " Astro Azi Options Util"));
        EXPECT_FALSE(BarEnabled());
        QWidget& form = Form("frmAzimuth");
        if (QString(way) == "frame")
            form.close();
        else
            Press(form, way);
        QTest::qWait(0);
        EXPECT_EQ(InView(), MainView) << way;
        EXPECT_EQ(Off(), off) << way;
        EXPECT_TRUE(BarEnabled()) << way;
    }
    EXPECT_EQ(Forms, 0);
}

TEST_F(ToolCommands, OneWizardAtATimeBesideTheTableOfTheAzimuth)
{
    Start();
    const QString off = Off();
    Click("picStarFixWizard");
    EXPECT_EQ(Off(), Sorted(off + " StarFixWizard"));
    QWidget& wizard = Form("frmStarFixWizard");
    auto* const height = wizard.findChild<platform::MaskedEdit*>("mskHeightM");
    height->setText("12.0");
    Click("bthStarFixWizard"); // brings forward what is open
    EXPECT_EQ(height->Text(), "12.0");

    Trigger("mnuAziGo");
    Boxes.Answer({numeric::BoxAnswer::Yes});
    Press(Form("frmAzimuth"), "cmdWhatIsUp");
    EXPECT_EQ(Boxes.TakeAll().size(), 1U);
    EXPECT_EQ(Window->findChildren<QWidget*>("frmStarFixWizard").size(), 2);
    Press(Form("frmAzimuth"), "cmdEnd"); // its table goes with it, the plan stays
    QTest::qWait(0);
    EXPECT_TRUE(wizard.isVisible());
    EXPECT_EQ(Off(), Sorted(off + " StarFixWizard"));
    EXPECT_EQ(height->Text(), "12.0");

    Press(wizard, "cmdNav(1)");
    EXPECT_FALSE(IsOpen("frmStarFixWizard"));
    EXPECT_EQ(Off(), off);
    EXPECT_EQ(InView(), MainView);
}

TEST_F(ToolCommands, AWizardCancelledOverTheInputLeavesNoPictureThere)
{
    Start();
    Click("picStarFixWizard");
    Trigger("mnuAstroEnter");
    Press(Form("frmStarFixWizard"), "cmdNav(1)");
    EXPECT_EQ(InView(), InputView);
}

TEST_F(ToolCommands, HelpOpensThePageOfItsTool)
{
    Start();
    Click("picStarFixWizard");
    Press(Form("frmStarFixWizard"), "cmdNav(0)");
    EXPECT_EQ(ManualPage(), "wizard.html");
    Trigger("mnuAziGo");
    QTest::keyClick(&Form("frmAzimuth"), Qt::Key_F1);
    EXPECT_EQ(ManualPage(), "azimuth.html");
}

TEST_F(ToolCommands, TheWizardCapturesATimeForTheGrid)
{
    Start();
    Click("picStarFixWizard");
    InForm([](QWidget& form) { QTest::mouseClick(form.findChild<QWidget*>("cmdOK"), Qt::LeftButton); });
    QTest::keyClick(&Form("frmStarFixWizard"), Qt::Key_F5);
    EXPECT_EQ(Forms, 1);
    EXPECT_NEAR(Window->Input().StoredTime, 38128.5 - 15.0 / 86400.0, 1e-9);
}

} // namespace
} // namespace merov::test
