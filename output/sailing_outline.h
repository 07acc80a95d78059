#pragma once

#include "sailing/voyage.h"

#include <QString>

#include <string>
#include <vector>

namespace merov::output
{

/// A row of the outline of results.
struct OutlineRow {
    QString Text;
    int Indent = 0; ///< 1 to 3; 0: not shown
};

/// The outline before a calculation, 23 rows.
std::vector<OutlineRow> EmptySailingOutline();

/// The outline of a planned voyage, 23 rows. Rows that the voyage has no value for stay as before a
/// calculation; after a refusal those are all but the vertex.
std::vector<OutlineRow> SailingOutline(const sailing::Voyage& voyage, const sailing::EarthModel& earth);

/// A distance in miles as outline and report of a voyage show it, "1234.5".
std::string SailingDistance(double miles);

/// A position as outline and report of a voyage show it, "45°30'.2 N; 008°15'.0 W".
std::string SailingPosition(double lat, double longitude);

} // namespace merov::output
