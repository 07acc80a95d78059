#pragma once

#include "numeric/error_trap.h"

#include <vector>

namespace merov::sailing
{

/// What times of arrival are computed from.
struct EtaInput {
    double Distance = 0.0;        ///< to go, miles
    double MinSpeed = 10.0;       ///< knots
    double MaxSpeed = 24.0;       ///< knots
    double SpeedInterval = 0.5;   ///< knots; steps below 0.01 are lost, since speeds keep to hundredths
    double DepartureTime = 0.0;   ///< date-time in the zone of DepartureZone
    double DepartureZone = 0.0;   ///< hours east of Greenwich
    double ArrivalZone = 0.0;     ///< likewise
    double EtaRounding = 86400.0; ///< parts of a day to which an arrival is rounded: 86400, 240 or 96
};

/// One row of the table: a speed and its times of arrival.
struct EtaRow {
    double Speed = 0.0; ///< knots
    double Gmt = 0.0;   ///< date-time
    double Local = 0.0; ///< in the zone of arrival
};

/// A computed table: the rows that it shows, of which the last ones can be blank.
struct EtaResult {
    int RowCount = 0; ///< as EtaRowCount
    std::vector<EtaRow> Rows;
};

/// The rows that the table has. One more than there are speeds, and so a blank one at the end, where the
/// number of intervals comes out a hair above a whole number (10 to 10.3 knots by 0.1).
/// An interval of 0 raises fault 11; more than a million rows, or data that is no number, 6 or 5.
int EtaRowCount(const EtaInput& input);

/// The times of arrival, a row for each speed from MinSpeed to MaxSpeed, which always is the last of them;
/// never more than EtaRowCount. Both times are rounded half up, the local one from the rounded GMT.
/// Faults as EtaRowCount; a speed of 0 raises fault 11.
std::vector<EtaRow> EtaTable(const EtaInput& input);

/// Both under the error trap of the sailings: a fault shows the box " ERROR REPORT", and what it ended
/// stays empty.
EtaResult RunEta(const EtaInput& input, numeric::LastError& journal);

} // namespace merov::sailing
