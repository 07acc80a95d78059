#include "support/fuzz_files.h"
#include "support/number_texts.h"
#include "support/observation_round_trip.h"

namespace merov::fix::tests
{

TEST(FuzzReplay, ObservationFilesHold)
{
    EXPECT_GE(test::ReplayFuzzFiles("observation_file", test::CheckRoundTrip), 18);
}

TEST(FuzzReplay, NumberTextsHold)
{
    EXPECT_GE(test::ReplayFuzzFiles("number_texts", test::CheckNumberTexts), 20);
}

} // namespace merov::fix::tests
