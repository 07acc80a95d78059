/// Writes pictures of the program's screens: "merov_screenshots FOLDER". Everything runs in its own world:
/// settings in memory, a clock that stands still, a sample session. The screen is Qt's offscreen one, whose
/// size and scale scripts/take_screenshots.sh sets.

#include "app/frm_working.h"
#include "app/tab_in.h"
#include "ephemeris/astro_lib.h"
#include "ephemeris/time_lib.h"
#include "platform/application.h"
#include "platform/masked_edit.h"
#include "platform/message_boxes.h"
#include "platform/night_palette.h"
#include "support/fake_clock.h"
#include "support/fake_printers.h"
#include "support/map_settings.h"
#include "support/scripted_dialogs.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QPainter>
#include <QScreen>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>

namespace
{

using namespace merov;
using platform::MaskedEdit;

const QString RunDir = QStringLiteral(MEROV_RUN_DIR);

/// Draws a window where it stands, with the caption that a desktop gives a dialog.
void DrawWindow(QPainter& painter, QWidget& window)
{
    const QRect place(window.pos(), window.size());
    const bool framed = window.parentWidget() != nullptr && !(window.windowFlags() & Qt::FramelessWindowHint);
    if (framed) {
        constexpr int captionHeight = 26;
        const QRect caption(place.left() - 1, place.top() - captionHeight, place.width() + 2, captionHeight);
        painter.fillRect(caption.adjusted(0, 0, 0, place.height() + 1), QColor(70, 84, 104));
        painter.setPen(Qt::white);
        painter.drawText(caption.adjusted(8, 0, -8, 0), Qt::AlignVCenter, window.windowTitle().trimmed());
    }
    painter.drawPixmap(place.topLeft(), window.grab());
}

class Photographer
{
public:
    explicit Photographer(QString folder) : folder_(std::move(folder)) {}

    /// The whole screen as it stands.
    void Take(const QString& name)
    {
        QTest::qWait(20);
        const QScreen& screen = *QGuiApplication::primaryScreen();
        QImage image(screen.size() * screen.devicePixelRatio(), QImage::Format_RGB32);
        image.setDevicePixelRatio(screen.devicePixelRatio());
        image.fill(QColor(45, 52, 62));
        QPainter painter(&image);
        QWidgetList windows = QApplication::topLevelWidgets();
        const auto height = [](const QWidget* window) {
            return window->isModal() ? 2 : window->parentWidget() != nullptr ? 1 : 0;
        };
        std::stable_sort(windows.begin(), windows.end(),
                         [&](const QWidget* a, const QWidget* b) { return height(a) < height(b); });
        for (QWidget* window : windows)
            if (window->isVisible()) DrawWindow(painter, *window);
        painter.end();
        const QString file = folder_ + "/" + name + ".png";
        if (!image.save(file)) throw std::runtime_error("cannot write " + file.toStdString());
    }

    /// Takes the picture of the next modal window, then closes it by `close`.
    void TakeModal(const QString& name, const std::function<void(QWidget&)>& close)
    {
        QTimer::singleShot(50, [this, name, close] {
            QWidget* window = QApplication::activeModalWidget();
            if (window == nullptr) {
                std::cerr << "merov_screenshots: no window for " << name.toStdString() << "\n";
                std::exit(1); // whoever waits for the window would wait for ever
            }
            Take(name);
            close(*window);
        });
    }

private:
    QString folder_;
};

/// One run of the program, from screen to screen.
class Session
{
public:
    explicit Session(Photographer& photographer)
        : camera_(photographer), window_({.Settings = settings_,
                                          .Printers = printers_,
                                          .Files = &dialogs_,
                                          .AppPath = RunDir,
                                          .Documents = home_.path()})
    {
        printers_.Listed = {"Bridge", "Chart room"};
        printers_.First = "Bridge";
    }

    void Run()
    {
        camera_.TakeModal("splash", [](QWidget& splash) { QTest::mouseClick(&splash, Qt::LeftButton); });
        window_.StartUp({});
        camera_.Take("main");
        Sailings();
        Input();
        for (const char* sample : {"evening_stars", "twelve_sights", "date_line_south"})
            Results(sample);
        ResultForms();
        Dialogs();
        Azimuth();
        Wizard();
        Night();
    }

private:
    /// The form of a name that is in view.
    QWidget& Form(const QString& name)
    {
        for (QWidget* form : window_.findChildren<QWidget*>(name))
            if (form->isVisible()) return *form;
        throw std::logic_error("no form " + name.toStdString());
    }

    void Press(const QString& form, const QString& button)
    {
        QTest::mouseClick(Form(form).findChild<QWidget*>(button), Qt::LeftButton);
        QTest::qWait(0);
    }

    /// Types into a field of a form and leaves it.
    void TypeInto(const QString& form, const QString& field, const char* keys)
    {
        auto& edit = *Form(form).findChild<MaskedEdit*>(field);
        edit.setFocus();
        edit.setCursorPosition(0);
        QTest::keyClicks(&edit, keys);
        QTest::keyClick(&edit, Qt::Key_Tab);
    }

    template <class Control>
    Control& Find(const QString& name)
    {
        auto* control = window_.findChild<Control*>(name);
        if (control == nullptr) throw std::logic_error("no control " + name.toStdString());
        return *control;
    }

    void Click(const QString& name)
    {
        QTest::mouseClick(&Find<QWidget>(name), Qt::LeftButton);
        QTest::qWait(0);
    }

    void ShowTab(int index)
    {
        Find<app::TabIn>("tabIn").ShowPage(index);
        QTest::qWait(0);
    }

    /// Types into a field and leaves it.
    void Type(const QString& field, const char* keys)
    {
        auto& edit = Find<MaskedEdit>(field);
        edit.setFocus();
        edit.setCursorPosition(0);
        QTest::keyClicks(&edit, keys);
        QTest::keyClick(&edit, Qt::Key_Tab);
        QTest::qWait(0);
    }

    /// From the Channel to New York: the three pages of the sailings.
    void Sailings()
    {
        Click("picRLGC");
        camera_.Take("sailings_rhumb_line_empty");
        Type("mskLat(0)", "49125N");
        Type("mskLong(0)", "005123W");
        Type("mskLat(1)", "40280N");
        Type("mskLong(1)", "073500W");
        camera_.Take("sailings_rhumb_line");
        Click("cmdNextTabUtil(0)");
        camera_.Take("sailings_great_circle_empty");
        Type("mskLong(4)", "05");
        Click("cmdCompute(1)");
        camera_.Take("sailings_great_circle");
        Type("mskLat(4)", "5030");
        Click("cmdCompute(1)");
        camera_.Take("sailings_composite");
        camera_.TakeModal("sailings_limit_refused", [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        Type("mskLat(4)", "4500");
        Click("cmdCompute(1)");
        Click("cmdNextTabUtil(1)");
        Click("cmdCompute(2)");
        camera_.Take("sailings_eta");
        Click("cmdEndTabUtil(2)");
    }

    /// A text that the field refuses, and the box that tells so.
    void Refuse(const QString& field, const char* keys, const QString& picture)
    {
        auto& edit = Find<MaskedEdit>(field);
        edit.setFocus();
        QTest::keyClicks(&edit, keys);
        camera_.TakeModal(picture, [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        QTest::keyClick(&edit, Qt::Key_Tab);
    }

    void Input()
    {
        Click("picStarFix");
        const char* names[] = {"position", "conditions", "observations"};
        for (int tab = 0; tab < 3; ++tab) {
            ShowTab(tab);
            camera_.Take(QString("input_") + names[tab] + "_empty");
        }
        dialogs_.Answers = {RunDir + "/Observations/evening_stars.obs"};
        Find<QAction>("mnuAstroLoad").trigger();
        camera_.Take("input_position");
        Refuse("mskLat(5)", "95", "input_position_refused");
        dialogs_.Answers = {RunDir + "/Observations/evening_stars.obs"};
        Find<QAction>("mnuAstroLoad").trigger();
        Click("cmdNextTabIn(0)");
        camera_.Take("input_conditions");
        Refuse("mskTempCelcius(0)", "+99", "input_conditions_refused");
        dialogs_.Answers = {RunDir + "/Observations/evening_stars.obs"};
        Find<QAction>("mnuAstroLoad").trigger();
        ShowTab(2);
        Click("cmdNumRes");
        Click("bthBackStarFix1");
        Click("bthMain"); // the panels of the fix stay
        Click("picStarFix");
        ShowTab(2);
        camera_.Take("input_observations");
        RefuseAltitude();
        camera_.TakeModal("time_capture", [](QWidget& form) { form.close(); });
        Click("cmdChronoF5");
    }

    void RefuseAltitude()
    {
        auto& grid = Find<QTableWidget>("grdObs");
        grid.setFocus();
        grid.setCurrentCell(1, 2);
        QTest::keyClicks(&grid, "8");
        QTest::keyClicks(window_.focusWidget(), "9599");
        Find<MaskedEdit>("mskHeightInst").setText(QString::fromUtf8("90°00'.1"));
        camera_.TakeModal("input_observations_box", [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        QTest::keyClick(window_.focusWidget(), Qt::Key_Backtab); // to the grid, over the same cell
        camera_.Take("input_observations_refused");
    }

    /// Report and chart of a sample.
    void Results(const QString& sample)
    {
        dialogs_.Answers = {RunDir + "/Observations/" + sample + ".obs"};
        Find<QAction>("mnuAstroLoad").trigger();
        Click("bthNumRes");
        camera_.Take("report_" + sample);
        Click("bthBackStarFix1");
        Click("bthGraphRes");
        camera_.Take("chart_" + sample);
        Click("bthGrid1");
        camera_.Take("chart_" + sample + "_grid");
        Click("bthGrid2");
        Click("bthBackStarFix2");
    }

    /// The forms that belong to a result in view.
    void ResultForms()
    {
        Click("bthNumRes");
        camera_.TakeModal("probability", [](QWidget& form) { form.close(); });
        Find<QAction>("mnuAstroProba").trigger();
        camera_.TakeModal("print_select", [this](QWidget& form) {
            camera_.TakeModal("print_wait", [](QWidget&) {}); // it closes by itself
            QTest::keyClick(&form, Qt::Key_Return);
        });
        Click("bthPrint1");
        Click("bthBackStarFix1");
    }

    void Dialogs()
    {
        Click("bthMain");
        Find<QAction>("mnuOptionsTab").trigger();
        camera_.Take("preferences_ellipsoid");
        Click("cmdNextTabOptions(0)");
        camera_.Take("preferences_intercepts");
        Click("cmdNextTabOptions(1)");
        camera_.Take("preferences_time");
        camera_.TakeModal("preferences_time_refused", [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        Click("cmdSetSysTime");
        Click("cmdEndTabOptions(2)");
        const auto close = [](QWidget& form) { form.close(); };
        camera_.TakeModal("about", [](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
        Find<QAction>("mnuHelpAbout").trigger();
        camera_.TakeModal("print_setup", close);
        Find<QAction>("mnuFilePageSetup").trigger();
        camera_.TakeModal("quit", [](QWidget& form) { QTest::keyClick(&form, Qt::Key_Escape); });
        Find<QAction>("mnuFileQuit").trigger();
    }

    /// The compasses checked on the Moon, and the sky at that time.
    void Azimuth()
    {
        const QString form = "frmAzimuth";
        Click("picAzimuth");
        Form(form).move(320, 150);
        camera_.Take("azimuth_empty");
        Form(form).findChild<QComboBox*>("cboBody")->setCurrentText("MOONLOW");
        TypeInto(form, "mskLat", "49125N");
        TypeInto(form, "mskLong", "005123W");
        TypeInto(form, "mskCourse(0)", "1555");
        TypeInto(form, "mskCourse(1)", "2410");
        TypeInto(form, "mskCourse(2)", "2380");
        TypeInto(form, "mskVariation", "0025");
        Press(form, "cmdCompute");
        camera_.Take("azimuth");
        Press(form, "cmdWhatIsUp");
        Form("frmStarFixWizard").move(60, 120);
        Press("frmStarFixWizard", "cmdStarsGraph");
        Form("frmSkyDome").move(660, 60);
        camera_.Take("what_is_up");
        Press(form, "cmdEnd");
    }

    /// The stars of an evening, from the entries to the table and the sky dome.
    void Wizard()
    {
        const QString form = "frmStarFixWizard";
        Click("picStarFixWizard");
        Form(form).move(60, 120);
        camera_.Take("wizard_step1_empty");
        TypeInto(form, "mskLat", "49125N");
        TypeInto(form, "mskLong", "005123W");
        TypeInto(form, "mskHeightM", "120");
        camera_.Take("wizard_step1");
        Press(form, "cmdNav(3)");
        Form(form).findChild<QAbstractButton*>("optTime(1)")->click();
        camera_.Take("wizard_step2");
        Press(form, "cmdNav(3)");
        camera_.Take("wizard_step3");
        Press(form, "cmdNav(3)");
        camera_.Take("wizard_step4");
        Press(form, "cmdStarsGraph");
        Form("frmSkyDome").move(660, 60);
        camera_.Take("sky_dome");
        Press(form, "cmdNav(4)");
    }

    /// Some of it in the colours of the night.
    void Night()
    {
        platform::NightPalette night(*qApp);
        night.SetNight(true);
        camera_.Take("night_main");
        dialogs_.Answers = {RunDir + "/Observations/evening_stars.obs"};
        Find<QAction>("mnuAstroLoad").trigger();
        camera_.Take("night_input");
        Click("bthNumRes");
        camera_.Take("night_report");
        Click("bthBackStarFix1");
        Click("bthGraphRes");
        camera_.Take("night_chart");
        Click("bthBackStarFix2");
    }

    Photographer& camera_;
    test::MapSettings settings_;
    test::ScriptedDialogs dialogs_;
    test::FakePrinters printers_;
    QTemporaryDir home_;
    app::FrmWorking window_;
};

} // namespace

int main(int argc, char** argv)
{
    platform::Application application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    if (argc != 2) {
        std::cerr << "usage: merov_screenshots FOLDER\n";
        return 2;
    }
    const test::FakeClock clock(ephemeris::JoinDateTime({2024, 9, 14, 19, 48, 20}));
    platform::MessageBoxes boxes;
    const numeric::ScopedBoxReceiver boxScope(boxes);
    ephemeris::SetDataFolder(RunDir.toStdString());
    try {
        Photographer photographer(QString::fromLocal8Bit(argv[1]));
        Session(photographer).Run();
    } catch (const std::exception& error) {
        std::cerr << "merov_screenshots: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
