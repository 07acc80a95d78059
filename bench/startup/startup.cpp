/// What a start costs: "merov_startup merov" starts the whole program up to its main screen, the splash
/// closed by a click as soon as it shows, and ends; "merov_startup empty" shows an empty main window and
/// ends. Each prints the CPU time of its process so far, user and system, in milliseconds.

#include "app/frm_working.h"
#include "ephemeris/astro_lib.h"
#include "platform/application.h"
#include "platform/locale.h"
#include "platform/printers.h"
#include "platform/settings_store.h"
#include "platform/system_clock.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMouseEvent>
#include <QTimer>

#include <sys/resource.h>

#include <iostream>
#include <memory>
#include <string>

namespace
{

using namespace merov;

double Milliseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

/// Prints the cost and ends the program once the window has been painted.
void ReportWhenPainted()
{
    QTimer::singleShot(0, [] {
        QCoreApplication::processEvents();
        rusage used{};
        getrusage(RUSAGE_SELF, &used);
        std::cout << Milliseconds(used.ru_utime) + Milliseconds(used.ru_stime) << std::endl;
        std::_Exit(0); // what the end costs is not asked
    });
}

void ClickSplash()
{
    QTimer::singleShot(0, [] {
        QWidget* splash = QApplication::activeModalWidget();
        if (splash == nullptr) return ClickSplash();
        const QPointF middle = splash->rect().center();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent click(type, middle, splash->mapToGlobal(middle), Qt::LeftButton, Qt::LeftButton, {});
            QApplication::sendEvent(splash, &click);
        }
    });
}

int ShowEmpty(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1216, 752);
    window.show();
    ReportWhenPainted();
    return QApplication::exec();
}

int StartMerov(int argc, char** argv)
{
    platform::Application application(argc, argv);
    platform::ApplyLocale();
    platform::SystemClock clock;
    const numeric::ScopedClock clockScope(clock);
    platform::IniSettings settings;
    platform::SystemPrinters printers;
    const QString folder = MEROV_RUN_DIR;
    ephemeris::SetDataFolder(folder.toStdString());
    app::FrmWorking window({.Settings = settings,
                            .Printers = printers,
                            .AppPath = folder,
                            .Documents = folder,
                            .CanWrite = [](const QString&) { return true; }});
    ClickSplash();
    window.StartUp({});
    ReportWhenPainted();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    const std::string what = argc > 1 ? argv[1] : "";
    if (what == "merov") return StartMerov(argc, argv);
    if (what == "empty") return ShowEmpty(argc, argv);
    std::cerr << "usage: merov_startup merov|empty\n";
    return 2;
}
