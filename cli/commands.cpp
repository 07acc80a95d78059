#include "cli/commands.h"

namespace merov::cli
{

CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description)
{
    CLI::App* command = app.add_subcommand(name, description);
    command->add_flag("--json")->description("print one JSON object instead of text");
    return command;
}

bool Wants(const CLI::App& app, const std::string& option)
{
    for (const CLI::App* command : app.get_subcommands())
        if (Wants(*command, option)) return true;
    const CLI::Option* given = app.get_option_no_throw(option);
    return given != nullptr && given->count() > 0;
}

std::unique_ptr<CLI::App> DeclareCommands(const JobTaker& run)
{
    auto app = std::make_unique<CLI::App>(
        "Celestial navigation: fixes from sextant sights, places of bodies, sailings.\n"
        "Angles are decimal degrees, north and east positive; times are GMT; heights are metres.",
        "merov-cli");
    app->set_version_flag("--version", "merov-cli " MEROV_VERSION);
    app->require_subcommand(1);
    AddFixCommand(*app, run);
    AddConvertCommand(*app, run);
    AddBodyCommands(*app, run);
    AddSunCommand(*app, run);
    AddRhumbCommand(*app, run);
    AddGcCommand(*app, run);
    AddEtaCommand(*app, run);
    AddAzimuthCommand(*app, run);
    AddStarsCommand(*app, run);
    return app;
}

} // namespace merov::cli
