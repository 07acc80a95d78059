#pragma once

#include <string_view>

namespace merov::ephemeris
{

/// Apparent visual magnitude of a body (one of the 66 codes) at `instant`, GMT. Planets by their
/// distances and phase, Saturn with its rings; the Sun -26.86, the Moon -11 and the stars are constant.
double ComputeMagnitude(std::string_view bodyCode, double instant);

} // namespace merov::ephemeris
