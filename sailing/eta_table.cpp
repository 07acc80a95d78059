#include "sailing/eta_table.h"

#include "numeric/fault.h"
#include "sailing/voyage.h"

#include <algorithm>
#include <cmath>

namespace merov::sailing
{
namespace
{

using numeric::Finite;
using numeric::Quotient;

constexpr double HoursPerDay = 24.0;
constexpr double GreatestRowCount = 1e6;

/// A time rounded to parts of a day, half a part up.
double Rounded(double time, double parts)
{
    return std::trunc(time * parts + 0.5) / parts;
}

/// The next speed in hundredths of a knot, so that a binary fraction is not summed up.
double NextSpeed(const EtaInput& input, double speed)
{
    speed = std::floor((speed + input.SpeedInterval) * 100.0 + 0.1) / 100.0;
    return std::min(speed, input.MaxSpeed);
}

} // namespace

int EtaRowCount(const EtaInput& input)
{
    double intervals = std::fabs(Quotient(input.MaxSpeed - input.MinSpeed, input.SpeedInterval));
    if (intervals > GreatestRowCount) numeric::RaiseOverflow();
    if (intervals == std::floor(intervals)) intervals -= 1.0;
    return static_cast<int>(std::floor(2.0 + intervals));
}

std::vector<EtaRow> EtaTable(const EtaInput& input)
{
    const int rowCount = EtaRowCount(input);
    const double departure = input.DepartureTime - input.DepartureZone / HoursPerDay;
    std::vector<EtaRow> rows;
    rows.reserve(static_cast<std::size_t>(rowCount));
    double speed = input.MinSpeed;
    for (int row = 1; row <= rowCount; ++row) {
        const double gmt =
            Rounded(Finite(departure + Quotient(input.Distance, speed) / HoursPerDay), input.EtaRounding);
        rows.push_back({speed, gmt, Rounded(input.ArrivalZone / HoursPerDay + gmt, input.EtaRounding)});
        if (speed == input.MaxSpeed) break;
        speed = NextSpeed(input, speed);
    }
    return rows;
}

EtaResult RunEta(const EtaInput& input, numeric::LastError& journal)
{
    numeric::ErrorTrap trap(SailingTrapLine, journal);
    EtaResult result;
    if (trap.Step([&] { result.RowCount = EtaRowCount(input); })) trap.Step([&] { result.Rows = EtaTable(input); });
    return result;
}

} // namespace merov::sailing
