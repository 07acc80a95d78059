#pragma once

#include "app/frm_working.h"
#include "ephemeris/astro_lib.h"
#include "support/fake_clock.h"
#include "support/fake_printers.h"
#include "support/map_settings.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"
#include "support/scripted_dialogs.h"

#include <QAction>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>

namespace merov::test
{

const QString RunDir = QStringLiteral(MEROV_RUN_DIR);
const QString Sample = RunDir + "/Observations/evening_stars.obs";

// What is in view, and which menus are off.
const QString MainView = "panhGradient picStarFix picRLGC picAzimuth picStarFixWizard tlhWorking";
const QString InputView = "panhGradient tabIn tlhStarfix";
const QString InputMenus = "AstroCorrect AstroErase AstroGraph AstroNum AstroSave";
const QString ResultMenus = "AstroGraphChart AstroGraphGrid AstroGraphLOP AstroGraphPrint AstroNumPrint";

/// The whole program without its main: the main window with a world of its own.
class Program : public testing::Test
{
protected:
    Program()
    {
        ephemeris::SetDataFolder(MEROV_RUN_DIR);
        Printers.Listed.clear();
        Printers.OffersPdf = false;
    }

    void Start(const QString& commandLine = {}, const QString& appPath = RunDir)
    {
        Window = std::make_unique<app::FrmWorking>(app::Surroundings{.Settings = Settings,
                                                                     .Printers = Printers,
                                                                     .Files = Files,
                                                                     .AppPath = appPath,
                                                                     .Documents = Home.path(),
                                                                     .SplashTime = std::chrono::milliseconds(1),
                                                                     .WaitTick = std::chrono::milliseconds(0)});
        Window->StartUp(commandLine);
        QTest::qWait(0);
    }

    template <class Control>
    Control& Find(const QString& name)
    {
        auto* control = Window->findChild<Control*>(name);
        if (control == nullptr) throw std::logic_error("no control " + name.toStdString());
        return *control;
    }

    void Trigger(const QString& name)
    {
        Find<QAction>(name).trigger();
        QTest::qWait(0);
    }

    void Click(const QString& name)
    {
        QTest::mouseClick(&Find<QWidget>(name), Qt::LeftButton);
        QTest::qWait(0);
    }

    /// The surfaces in view and the tool bar.
    QString InView()
    {
        QStringList names;
        for (const char* name :
             {"panhGradient", "picStarFix", "picRLGC", "picAzimuth", "picStarFixWizard", "tabIn", "tabOptions",
              "rtfNumDisp", "picLMChart", "tlhWorking", "tlhStarfix", "tlhNum", "tlhGraph"})
            if (Find<QWidget>(name).isVisible()) names += name;
        return names.join(' ');
    }

    /// The menu entries that are off.
    QString Off()
    {
        QStringList names;
        for (const QAction* action : Window->findChildren<QAction*>())
            if (action->objectName().startsWith("mnu") && !action->isEnabled()) names += action->objectName().mid(3);
        return Sorted(names.join(' '));
    }

    static QString Sorted(const QString& names)
    {
        QStringList words = names.split(' ');
        words.sort();
        return words.join(' ');
    }

    /// Does something with the next modal window, which is to end it. A later one can be given meanwhile.
    void InForm(const std::function<void(QWidget&)>& act)
    {
        QTimer::singleShot(0, Window.get(), [this, act] {
            QWidget* form = QApplication::activeModalWidget();
            ASSERT_NE(form, nullptr);
            ++Forms;
            act(*form);
        });
    }

    int Forms = 0; ///< modal windows that InForm has met
    ScreenBoxes Boxes;
    FakeClock Clock;
    MapSettings Settings;
    ScriptedDialogs Dialogs;
    platform::FileDialogs* Files = &Dialogs;
    FakePrinters Printers; ///< none at first
    QTemporaryDir Home;
    std::unique_ptr<app::FrmWorking> Window;
};

} // namespace merov::test
