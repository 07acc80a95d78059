#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace merov::fuzz
{

/// Ends the run of a fuzz target with what is wrong; 0 when nothing is.
inline int Report(const std::string& wrong)
{
    if (wrong.empty()) return 0;
    std::fprintf(stderr, "%s\n", wrong.c_str());
    std::abort();
}

} // namespace merov::fuzz
