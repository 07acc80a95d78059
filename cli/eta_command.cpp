#include "cli/arguments.h"
#include "cli/commands.h"
#include "ephemeris/time_lib.h"
#include "numeric/error_trap.h"
#include "numeric/inout_lib.h"
#include "sailing/eta_table.h"

#include <algorithm>
#include <memory>

namespace merov::cli
{
namespace
{

Outcome EtaJob(const sailing::EtaInput& input)
{
    Outcome outcome;
    numeric::LastError journal;
    const sailing::EtaResult table = sailing::RunEta(input, journal);
    QJsonArray rows;
    outcome.Text = "Speed   GMT                   Local time\n";
    for (const sailing::EtaRow& row : table.Rows) {
        rows.append(
            QJsonObject{{"Speed", JsonNumber(row.Speed)}, {"Gmt", JsonTime(row.Gmt)}, {"Local", JsonTime(row.Local)}});
        const auto time = [](double instant) { return ephemeris::FormatDateTime(instant, "dd mmm yyyy hh:mm:ss"); };
        outcome.Text +=
            numeric::FormatNumber(row.Speed, "000.00") + "  " + time(row.Gmt) + "  " + time(row.Local) + "\n";
    }
    outcome.Json = {{"Rows", rows}};
    if (table.Rows.empty()) outcome.Status = StatusRefused;
    return outcome;
}

} // namespace

void AddEtaCommand(CLI::App& app, const JobTaker& run)
{
    const auto input = std::make_shared<sailing::EtaInput>();
    CLI::App* command = AddCommand(app, "eta", "times of arrival at a range of speeds");
    AddNumber(*command, "DISTANCE", input->Distance, "miles to go");
    AddNumber(*command, "MIN", input->MinSpeed, "lowest speed, knots, above 0");
    AddNumber(*command, "MAX", input->MaxSpeed, "highest speed, knots, MIN or more");
    AddNumber(*command, "STEP", input->SpeedInterval, "knots from speed to speed, above 0");
    AddTime(*command, "DEPARTURE", input->DepartureTime, "time of departure, in the zone of --zone");
    AddOptionalNumber(*command, "--zone", input->DepartureZone, "of the departure, hours east of Greenwich (0)");
    AddOptionalNumber(*command, "--arrival-zone", input->ArrivalZone, "of the local times of arrival, likewise (0)");
    command
        ->add_option("--round", input->EtaRounding,
                     "parts of a day to which times are rounded: 86400 seconds, 240 tenths or 96 quarters of an hour")
        ->check(CLI::IsMember(std::vector<double>{86400.0, 240.0, 96.0}));
    command->callback([input, run] {
        if (!(input->MinSpeed > 0.0)) throw CLI::ValidationError("MIN", "is not above 0");
        if (!(input->SpeedInterval > 0.0)) throw CLI::ValidationError("STEP", "is not above 0");
        if (input->MaxSpeed < input->MinSpeed) throw CLI::ValidationError("MAX", "is below MIN");
        run([input](const BoxLog&) { return EtaJob(*input); });
    });
}

} // namespace merov::cli
