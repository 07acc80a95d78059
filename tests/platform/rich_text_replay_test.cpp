#include "support/fuzz_files.h"
#include "support/rich_text_checks.h"

namespace merov::platform
{

TEST(FuzzReplay, RichTextsHold)
{
    EXPECT_GE(test::ReplayFuzzFiles("rich_text", test::CheckRichText), 10);
}

} // namespace merov::platform
