#pragma once

#include "packaging/command_words.h"

#include <string>

namespace merov::packaging
{

/// A manual page of section 1, in the language of man(7).
/// @param program  its words
/// @param date, version  for the title line: "23 November 2026", "Merov 1.2.0"
/// @param sections text in that language that stands at the end: exit status, files, examples
std::string ManualPage(const Command& program, const std::string& date, const std::string& version,
                       const std::string& sections);

} // namespace merov::packaging
