#include "tests/support/observation_round_trip.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Any bytes as an observation file: reading them never fails in a way of its own, what is taken lies
/// within the limits, and what a save writes loads and saves to the same bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string wrong = merov::test::CheckRoundTrip(std::string_view(reinterpret_cast<const char*>(data), size));
    if (wrong.empty()) return 0;
    std::fprintf(stderr, "%s\n", wrong.c_str());
    std::abort();
}
