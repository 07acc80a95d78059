#include "cli/commands.h"
#include "fix/observation_file.h"

#include <memory>

namespace merov::cli
{

void AddConvertCommand(CLI::App& app, const JobTaker& run)
{
    struct Words {
        std::string Source;
        std::string Target;
    };
    const auto words = std::make_shared<Words>();
    CLI::App* command = AddCommand(app, "convert", "write an observation file of any form in the current form");
    command->add_option("IN", words->Source, "observation file of any form")->required();
    command->add_option("OUT", words->Target, "file to write; replaced whole or not at all")->required();
    command->callback([words, run] {
        run([words](const BoxLog&) {
            Outcome outcome;
            if (fix::ConvertObservationFile(words->Source, words->Target))
                outcome.Text = "File " + words->Target + " saved.\n";
            else
                outcome.Status = StatusRefused;
            return outcome;
        });
    });
}

} // namespace merov::cli
