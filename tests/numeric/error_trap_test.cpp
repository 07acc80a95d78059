#include "numeric/error_trap.h"

#include "numeric/clock.h"
#include "support/expect.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>

namespace merov::numeric
{
namespace
{

using test::FaultOf;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

TEST(CheckedArithmetic, RaisesTheFaultOfEachCase)
{
    EXPECT_EQ(FaultOf([] { Quotient(0.0, 0.0); }), 11);
    EXPECT_EQ(FaultOf([] { Quotient(NaN, -0.0); }), 11);
    EXPECT_EQ(FaultOf([] { Quotient(1e300, 1e-300); }), 6);
    EXPECT_EQ(FaultOf([] { Quotient(NaN, 2.0); }), 5);
    EXPECT_EQ(FaultOf([] { SquareRoot(-1e-300); }), 5);
    EXPECT_EQ(FaultOf([] { SquareRoot(NaN); }), 5);
    EXPECT_EQ(FaultOf([] { SquareRoot(Infinity); }), 6);
    EXPECT_EQ(FaultOf([] { NaturalLog(0.0); }), 5);
}

class ErrorTrapTest : public testing::Test
{
protected:
    const std::string box = " ERROR REPORT|An error occured in the main subroutine.|The program will try to resume "
                            "execution|but please report the following error:|";
    test::FakeClock clock;
    LastError journal;
    ErrorTrap trap{"An error occured in the main subroutine.", journal};
};

TEST_F(ErrorTrapTest, GoesOnWithTheNextStepAndLeavesTheTargetAlone)
{
    test::BoxRecorder boxes;
    double target = 7.0;
    trap.Assign(target, [] { return Quotient(1.0, 0.0); });
    test::ExpectBox(boxes, BoxIcon::Error, box + "Division by zero.");
    trap.Assign(target, [] { return Infinity; });
    EXPECT_EQ(boxes.TakeOne(), box + "Overflow.");
    EXPECT_FALSE(trap.Step([&] { target = SquareRoot(-1.0); }));
    EXPECT_EQ(boxes.TakeOne(), box + "Illegal procedure call.");
    EXPECT_EQ(target, 7.0);
    EXPECT_TRUE(trap.Step([&] { target = 8.0; }));
    EXPECT_EQ(target, 8.0);
    trap.Report(Fault(53, "File not found"));
    EXPECT_EQ(boxes.TakeOne(), box + "Error 53: File not found");
    EXPECT_THROW(trap.Step([] { throw std::bad_alloc(); }), std::bad_alloc); // no fault
}

TEST_F(ErrorTrapTest, SameMessageWithinOneSecondIsToldOnce)
{
    test::BoxRecorder boxes;
    const auto told = [&](int number) {
        trap.Report(Fault(number, ""));
        return boxes.TakeTexts().size();
    };
    EXPECT_EQ(told(11), 1u);
    clock.Advance(0.5);
    EXPECT_EQ(told(11), 0u);
    EXPECT_EQ(told(6), 1u);  // another text at the same moment
    EXPECT_EQ(told(11), 1u); // only the very last message counts
    for (int i = 0; i < 5; ++i) {
        clock.Advance(1.0);
        EXPECT_EQ(told(11), 0u) << i; // a silent one is remembered too
    }
    clock.Advance(2.0);
    EXPECT_EQ(told(11), 1u);
    ErrorTrap("An error occured elsewhere.", journal).Report(Fault(11, ""));
    EXPECT_EQ(boxes.TakeTexts().size(), 1u);
}

TEST_F(ErrorTrapTest, TheSecondCountsFromTheAnswerOfTheUser)
{
    test::SlowUser user(clock);
    for (int i = 0; i < 3; ++i)
        trap.Step(RaiseOverflow);
    EXPECT_EQ(user.Boxes, 1);
}

TEST(Clocks, OneSecondIsCountedInWholeSecondsEitherWay)
{
    const auto at = [](double seconds) { return 38128.0 + seconds / 86400.0; };
    EXPECT_TRUE(WithinOneSecond(at(11.9), at(10.0)));
    EXPECT_FALSE(WithinOneSecond(at(12.0), at(10.9)));
    for (int second = 0; second < 86400; second += 7) // whole seconds that a double holds a hair below
        ASSERT_FALSE(WithinOneSecond(at(second), at(second + 2))) << second;
}

TEST(Clocks, ScopesNestAndTheSystemClockKeepsUtc)
{
    const double unixNow = std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    setenv("TZ", "ABC-3:30", 1);
    tzset();
    const Clock::Moment now = CurrentClock().Now();
    unsetenv("TZ");
    tzset();
    EXPECT_NEAR((now.Utc - 25569.0) * 86400.0, unixNow, 5.0);
    EXPECT_NEAR((now.Local - now.Utc) * 24.0, 3.5, 1e-6);
    {
        test::FakeClock outer(38128.5, 2.0 / 24.0);
        {
            test::FakeClock inner(1.0);
            EXPECT_EQ(CurrentClock().Now().Utc, 1.0);
        }
        EXPECT_EQ(CurrentClock().Now().Local, 38128.5 + 2.0 / 24.0);
    }
    EXPECT_GE(CurrentClock().Now().Utc, now.Utc);
}

TEST(MessageBoxes, GoToTheInnermostReceiverAndAreNeverLost)
{
    EXPECT_THROW(ShowWarning("title", {"line"}), std::logic_error);
    test::BoxRecorder outer;
    {
        test::BoxRecorder inner;
        inner.Answer({BoxAnswer::Yes});
        EXPECT_EQ(ShowBox({"Question", {"?"}, BoxIcon::Question, BoxButtons::YesNo}), BoxAnswer::Yes);
        EXPECT_EQ(inner.TakeOne(), "Question|?");
    }
    ShowWarning("Incorrect data", {"a", "b"});
    test::ExpectBox(outer, BoxIcon::Warning, "Incorrect data|a|b");
    ShowInformation("Advice", {"c"});
    test::ExpectBox(outer, BoxIcon::Information, "Advice|c");
}

} // namespace
} // namespace merov::numeric
