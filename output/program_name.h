#pragma once

#include <string_view>

namespace merov::output
{

/// The program's name and version as they stand on results.
constexpr std::string_view ProgramName = "Merov 1.2";

/// The version alone.
constexpr std::string_view ProgramVersion = ProgramName.substr(ProgramName.size() - 3);

} // namespace merov::output
