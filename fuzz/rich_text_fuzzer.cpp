#include "fuzz/report.h"
#include "tests/support/rich_text_checks.h"

#include <QGuiApplication>

#include <cstdint>

/// Starts Qt without a screen, since a text measures its fonts.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    return 0;
}

/// Any bytes as a rich text: refused with a sentence, or read to a document within the reader's bounds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return merov::fuzz::Report(merov::test::CheckRichText({reinterpret_cast<const char*>(data), size}));
}
