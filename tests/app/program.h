#pragma once

#include "app/frm_working.h"
#include "ephemeris/astro_lib.h"
#include "support/fake_clock.h"
#include "support/map_settings.h"
#include "support/no_printers.h"
#include "support/qt_text.h"
#include "support/screen_boxes.h"
#include "support/scripted_dialogs.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <stdexcept>

namespace merov::test
{

const QString RunDir = QStringLiteral(MEROV_RUN_DIR);
const QString Sample = RunDir + "/Observations/evening_stars.obs";

/// The whole program without its main: the main window with a world of its own.
class Program : public testing::Test
{
protected:
    Program() { ephemeris::SetDataFolder(MEROV_RUN_DIR); }

    void Start(const QString& commandLine = {}, const QString& appPath = RunDir)
    {
        Window = std::make_unique<app::FrmWorking>(app::Surroundings{.Settings = Settings,
                                                                     .Printers = Printers,
                                                                     .Files = Files,
                                                                     .AppPath = appPath,
                                                                     .Documents = Home.path(),
                                                                     .SplashTime = std::chrono::milliseconds(1)});
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

    ScreenBoxes Boxes;
    FakeClock Clock;
    MapSettings Settings;
    ScriptedDialogs Dialogs;
    platform::FileDialogs* Files = &Dialogs;
    NoPrinters Printers;
    QTemporaryDir Home;
    std::unique_ptr<app::FrmWorking> Window;
};

} // namespace merov::test
