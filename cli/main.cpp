/// merov-cli: the computations of Merov for scripts and for checking.

#include "cli/arguments.h"
#include "cli/commands.h"
#include "ephemeris/astro_lib.h"

#include <QGuiApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <exception>
#include <iostream>
#include <memory>

namespace merov::cli
{
namespace
{

int Run(int argc, char** argv)
{
    Job job;
    const std::unique_ptr<CLI::App> declared = DeclareCommands([&job](Job taken) { job = std::move(taken); });
    CLI::App& app = *declared;
    try {
        std::vector<std::string> words = ArrangedWords(app, argc, argv);
        std::reverse(words.begin(), words.end()); // the parser takes them from the end
        app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? StatusDone : StatusWrongUsage;
    }

    std::unique_ptr<QGuiApplication> fonts;
    if (Wants(app, "--report") || Wants(app, "--chart")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");                   // also where there is a display
        QLoggingCategory::setFilterRules("default.warning=false"); // such as of folders that only a desktop has
        fonts = std::make_unique<QGuiApplication>(argc, argv);
    }
    const bool json = Wants(app, "--json");
    BoxLog log(!json);
    const numeric::ScopedBoxReceiver receiver(log);
    return Finish(job(log), log, json);
}

/// The folder of this program.
std::string ProgramFolder(int argc, char** argv)
{
    const QCoreApplication application(argc, argv); // it alone can tell
    return QCoreApplication::applicationDirPath().toStdString();
}

} // namespace
} // namespace merov::cli

int main(int argc, char** argv)
{
    try {
        merov::ephemeris::SetDataFolder(merov::cli::ProgramFolder(argc, argv));
        return merov::cli::Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "merov-cli: " << error.what() << "\n";
        return merov::cli::StatusRefused;
    }
}
