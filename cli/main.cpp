/// merov-cli: the computations of Merov for scripts and for checking.

#include "cli/arguments.h"
#include "cli/commands.h"
#include "ephemeris/astro_lib.h"

#include <QCoreApplication>

#include <algorithm>
#include <exception>
#include <iostream>

namespace merov::cli
{

CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description)
{
    CLI::App* command = app.add_subcommand(name, description);
    command->add_flag("--json")->description("print one JSON object instead of text");
    return command;
}

bool WantsJson(const CLI::App& app)
{
    for (const CLI::App* command : app.get_subcommands())
        if (WantsJson(*command)) return true;
    const CLI::Option* option = app.get_option_no_throw("--json");
    return option != nullptr && option->count() > 0;
}

namespace
{

int Run(int argc, char** argv)
{
    CLI::App app("Celestial navigation: fixes from sextant sights, places of bodies, rhumb lines.\n"
                 "Angles are decimal degrees, north and east positive; times are GMT; heights are metres.",
                 "merov-cli");
    app.set_version_flag("--version", "merov-cli " MEROV_VERSION);
    app.require_subcommand(1);
    Job job;
    const JobTaker run = [&job](Job taken) { job = std::move(taken); };
    AddFixCommand(app, run);
    AddConvertCommand(app, run);
    AddBodyCommands(app, run);
    AddSunCommand(app, run);
    AddRhumbCommand(app, run);

    try {
        std::vector<std::string> words = ArrangedWords(app, argc, argv);
        std::reverse(words.begin(), words.end()); // the parser takes them from the end
        app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? StatusDone : StatusWrongUsage;
    }

    const bool json = WantsJson(app);
    BoxLog log(!json);
    const numeric::ScopedBoxReceiver receiver(log);
    return Finish(job(log), log, json);
}

} // namespace
} // namespace merov::cli

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    merov::ephemeris::SetDataFolder(QCoreApplication::applicationDirPath().toStdString());
    try {
        return merov::cli::Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "merov-cli: " << error.what() << "\n";
        return merov::cli::StatusRefused;
    }
}
