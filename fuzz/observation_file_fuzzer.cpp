#include "fuzz/report.h"
#include "tests/support/observation_round_trip.h"

#include <cstdint>

/// Any bytes as an observation file: reading them never fails in a way of its own, what is taken lies
/// within the limits, and what a save writes loads and saves to the same bytes, once it has the places of its entries.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return merov::fuzz::Report(merov::test::CheckRoundTrip({reinterpret_cast<const char*>(data), size}));
}
