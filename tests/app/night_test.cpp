#include "app/program.h"
#include "platform/masked_edit.h"
#include "platform/message_boxes.h"
#include "platform/night_palette.h"
#include "support/pdf_tools.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QTableWidget>
#include <QToolTip>

#include <functional>
#include <numeric>
#include <set>

namespace merov::test
{
namespace
{

/// The whole program on a dark bridge.
class Night : public Program
{
protected:
    /// Looks at every window in view: red on black, and not all black.
    void Look(const QString& what)
    {
        QTest::qWait(0);
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible()) continue;
            const QImage picture = window->grab().toImage().convertToFormat(QImage::Format_RGB32);
            QRgb lit = 0;
            for (int y = 0; y < picture.height(); ++y) {
                const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
                lit = std::accumulate(line, line + picture.width(), lit, std::bit_or<>());
            }
            EXPECT_EQ(qGreen(lit) | qBlue(lit), 0) << what.toStdString() << window->metaObject()->className();
            EXPECT_GT(qRed(lit), 127) << what.toStdString() << window->metaObject()->className();
            Seen += window->objectName() + window->windowTitle() + window->metaObject()->className();
        }
    }

    /// Looks at the modal window that something brings, and ends it by a key.
    void Meet(const QString& what, const std::function<void()>& bring, Qt::Key end = Qt::Key_Escape)
    {
        InForm([this, what, end](QWidget& form) {
            Look(what);
            QTest::keyClick(&form, end);
        });
        bring();
    }

    /// Opens the lists and calendars of all that is in view, one after the other.
    void LookIntoLists(QWidget& form, const QString& what)
    {
        Look(what);
        for (auto* list : form.findChildren<QComboBox*>()) {
            if (!list->isVisible() || !list->isEnabled()) continue;
            list->showPopup();
            Look(what + " list ");
            list->hidePopup();
        }
        for (auto* time : form.findChildren<QDateTimeEdit*>()) {
            if (!time->isVisible() || !time->isEnabled()) continue;
            QTest::mouseClick(time, Qt::LeftButton, {}, QPoint(time->width() - 6, time->height() / 2));
            Look(what + " calendar ");
            if (QWidget* calendar = QApplication::activePopupWidget()) calendar->close();
        }
    }

    void LookIntoMenus()
    {
        for (QAction* entry : Window->menuBar()->actions()) {
            if (entry->menu() == nullptr) continue;
            entry->menu()->popup({});
            for (QAction* inner : entry->menu()->actions())
                if (inner->menu() != nullptr) inner->menu()->popup({});
            Look("menu ");
            for (QMenu* menu : entry->menu()->findChildren<QMenu*>())
                menu->hide();
            entry->menu()->hide();
        }
        QToolTip::showText({}, "Next & last", Window.get());
        Look("tool tip ");
        QToolTip::hideText();
    }

    QWidget& Form(const char* name) { return Find<QWidget>(name); }

    void Press(const char* form, const char* button)
    {
        QTest::mouseClick(Form(form).findChild<QWidget*>(button), Qt::LeftButton);
        QTest::qWait(0);
    }

    void LoadSample()
    {
        Dialogs.Answers = {Sample};
        Trigger("mnuAstroLoad");
    }

    void WalkWizard()
    {
        Click("picStarFixWizard");
        LookIntoLists(Form("frmStarFixWizard"), "wizard ");
        for (const auto& [field, keys] :
             {std::pair("mskLat", "49125N"), {"mskLong", "005123W"}, {"mskHeightM", "120"}}) {
            auto& edit = *Form("frmStarFixWizard").findChild<platform::MaskedEdit*>(field);
            edit.setFocus();
            edit.setCursorPosition(0);
            QTest::keyClicks(&edit, keys);
        }
        for (const char* step : {"2 ", "3 ", "4 "}) {
            Press("frmStarFixWizard", "cmdNav(3)");
            LookIntoLists(Form("frmStarFixWizard"), QString("wizard ") + step);
        }
        Press("frmStarFixWizard", "cmdStarsGraph");
        Look("sky dome ");
        Press("frmStarFixWizard", "cmdNav(4)");
    }

    platform::NightPalette Palette{*qApp};
    QSet<QString> Seen; ///< the windows
};

TEST_F(Night, EveryWindowIsRedOnBlack)
{
    Start();
    QTest::keyClick(Window.get(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    Look("main ");
    LookIntoMenus();

    Trigger("mnuUtilRL");
    for (int page = 0; page < 3; ++page) {
        LookIntoLists(*Window, "sailings ");
        if (page < 2) Click(QString("cmdNextTabUtil(%1)").arg(page));
    }
    Click("cmdEndTabUtil(2)");
    Trigger("mnuOptionsTab");
    for (int page = 0; page < 3; ++page) {
        LookIntoLists(*Window, "preferences ");
        if (page < 2) Click(QString("cmdNextTabOptions(%1)").arg(page));
    }
    Click("cmdEndTabOptions(2)");

    LoadSample();
    for (int page = 0; page < 3; ++page) {
        LookIntoLists(*Window, "input ");
        if (page < 2) Click(QString("cmdNextTabIn(%1)").arg(page));
    }
    for (int column = 0; column < 4; ++column) { // each opens another editor
        auto& grid = Find<QTableWidget>("grdObs");
        grid.setFocus();
        grid.setCurrentCell(1, column);
        QTest::keyClicks(&grid, column == 1 ? "V" : "2");
        Look("grid ");
        QTest::keyClick(Window->focusWidget(), Qt::Key_Escape);
    }
    Boxes.TakeAll(); // what was typed was no observation
    Meet("time capture ", [this] { Click("cmdChronoF5"); });

    LoadSample();
    Click("bthNumRes");
    Look("report ");
    Meet("probability ", [this] { Trigger("mnuAstroProba"); });
    Click("bthBackStarFix1");
    Click("bthGraphRes");
    Look("chart ");
    Click("bthBackStarFix2");
    Click("bthMain");

    Meet("print set-up ", [this] { Trigger("mnuFilePageSetup"); });
    Meet("quit ", [this] { Trigger("mnuFileQuit"); });
    Meet("about ", [this] { Trigger("mnuHelpAbout"); });
    Meet("box ", [] { platform::MessageBoxes().Show({"Missing data", {"Some data are missing."}, {}, {}}); });
    platform::ScreenFileDialogs files(Window.get());
    Meet("open ", [&files] { files.AskOpen({"Load", RunDir + "/Observations", {}, "obs"}); });
    Meet("save ", [&files] { files.AskSave({"Save", RunDir + "/Observations", "evening", "obs"}); });
    Meet("folder ", [&files] { files.AskFolder("Documents", RunDir); });

    Click("picAzimuth");
    LookIntoLists(Form("frmAzimuth"), "azimuth ");
    Press("frmAzimuth", "cmdEnd");
    WalkWizard();
    Trigger("mnuHelpManual");
    Look("manual ");
    EXPECT_EQ(Seen.size(), 29) << "windows that opened"; // else the walk has missed one
}

TEST_F(Night, PrintsKeepTheColoursOfTheDay)
{
    Printers.Listed = {"Bridge"};
    Start();
    Palette.SetNight(true);
    LoadSample();
    Click("bthGraphRes");
    InForm([this](QWidget& chooser) {
        Look("printers ");
        InForm([this](QWidget&) { Look("wait "); });
        QTest::keyClick(&chooser, Qt::Key_Return);
    });
    Trigger("mnuAstroGraphPrint");
    ASSERT_EQ(Printers.Jobs.size(), 1U);
    const QString page = Home.filePath("page");
    PdfTool("pdftoppm", {"-png", "-singlefile", "-r", "50", Printers.Jobs[0].File, page});
    QImage picture(page + ".png");
    ASSERT_FALSE(picture.isNull());
    picture.convertTo(QImage::Format_Grayscale8);
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_GT(picture.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0).red(), 200);
}

} // namespace
} // namespace merov::test
