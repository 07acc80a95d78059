#include "app/program_options.h"

#include <string>
#include <vector>

namespace merov::app
{

std::unique_ptr<CLI::App> DeclareProgramOptions()
{
    auto app = std::make_unique<CLI::App>("Celestial navigation on the screen.\n"
                                          "Fixes from sextant sights with report and chart, and sailings.",
                                          "merov");
    app->set_version_flag("--version", "merov " MEROV_VERSION);
    app->add_option("FILE")->description("observation file (.obs) to open");
    return app;
}

std::optional<int> AnswerProgramOption(int argc, const char* const* argv)
{
    if (argc != 2) return std::nullopt;
    const std::unique_ptr<CLI::App> app = DeclareProgramOptions();
    try {
        app->parse(std::vector<std::string>{argv[1]});
    } catch (const CLI::Success& asked) {
        return app->exit(asked);
    } catch (const CLI::ParseError&) {
        return std::nullopt;
    }
    return std::nullopt;
}

} // namespace merov::app
