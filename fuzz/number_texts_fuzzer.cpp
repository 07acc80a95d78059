#include "fuzz/report.h"
#include "tests/support/number_texts.h"

#include <cstdint>

/// Any bytes as the text of an entry, an angle, a number or a date: what is taken is shown so that it reads as the
/// same value, minutes never show as 60, and nothing leaves its range.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return merov::fuzz::Report(merov::test::CheckNumberTexts({reinterpret_cast<const char*>(data), size}));
}
