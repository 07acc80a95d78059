/// Merov: celestial navigation on the screen.

#include "app/frm_working.h"
#include "app/pictures.h"
#include "app/program_options.h"
#include "ephemeris/astro_lib.h"
#include "numeric/clock.h"
#include "numeric/message_box.h"
#include "platform/application.h"
#include "platform/locale.h"
#include "platform/message_boxes.h"
#include "platform/night_palette.h"
#include "platform/printers.h"
#include "platform/settings_store.h"
#include "platform/system_clock.h"

#include <QFile>
#include <QStandardPaths>

int main(int argc, char** argv)
{
    using namespace merov;
    if (const auto answered = app::AnswerProgramOption(argc, argv)) return *answered;
    platform::Application application(argc, argv);
    QCoreApplication::setApplicationName("Merov");
    QCoreApplication::setApplicationVersion(MEROV_VERSION);
    QGuiApplication::setWindowIcon(app::Picture("merov"));
    // The splash closes before the main window shows: only the main window ends the program.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const platform::NightPalette night(application);

    platform::ApplyLocale();
    platform::SystemClock clock;
    const numeric::ScopedClock clockScope(clock);
    platform::MessageBoxes boxes;
    const numeric::ScopedBoxReceiver boxScope(boxes);

    const QString folder = QCoreApplication::applicationDirPath();
    ephemeris::SetDataFolder(QFile::encodeName(folder).toStdString());
    platform::IniSettings settings;
    platform::SystemPrinters printers;
    app::FrmWorking window({.Settings = settings,
                            .Printers = printers,
                            .AppPath = folder,
                            .Documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                            .SetClock = platform::SetComputerClock});
    window.StartUp(QCoreApplication::arguments().mid(1).join(' '));
    return QApplication::exec();
}
