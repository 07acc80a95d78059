#pragma once

#include "packaging/command_words.h"

#include <string>

/// Completion of a program's commands, options and their values, as scripts for the shells.

namespace merov::packaging
{

std::string BashCompletion(const Command& program);
std::string FishCompletion(const Command& program);

} // namespace merov::packaging
