#pragma once

#include "sailing/composite_sailing.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace merov::output
{

/// A route in the exchange format GPX 1.1 (https://www.topografix.com/GPX/1/1), as chart plotters read it:
/// one route, its points the waypoints in their order, named "WP001" onwards, to a ten-millionth of a
/// degree.
/// @param name  of the route
QByteArray GpxRoute(const QString& name, const std::vector<sailing::Waypoint>& waypoints);

} // namespace merov::output
