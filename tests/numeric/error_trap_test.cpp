#include "numeric/error_trap.h"

#include "numeric/clock.h"
#include "numeric/expect.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace merov::numeric
{
namespace
{

using test::FaultOf;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

TEST(CheckedArithmetic, RaisesTheFaultOfEachCase)
{
    EXPECT_EQ(FaultOf([] { Quotient(1.0, 0.0); }), 11);
    EXPECT_EQ(FaultOf([] { Quotient(0.0, 0.0); }), 11);
    EXPECT_EQ(FaultOf([] { Quotient(NaN, -0.0); }), 11);
    EXPECT_EQ(FaultOf([] { Quotient(1e300, 1e-300); }), 6);
    EXPECT_EQ(FaultOf([] { Quotient(NaN, 2.0); }), 5);
    EXPECT_EQ(FaultOf([] { SquareRoot(-1e-300); }), 5);
    EXPECT_EQ(FaultOf([] { SquareRoot(NaN); }), 5);
    EXPECT_EQ(FaultOf([] { SquareRoot(Infinity); }), 6);
    EXPECT_EQ(FaultOf([] { NaturalLog(0.0); }), 5);
    EXPECT_EQ(FaultOf([] { NaturalLog(-1.0); }), 5);
    EXPECT_EQ(FaultOf([] { Finite(-Infinity); }), 6);
    EXPECT_EQ(FaultOf([] { Finite(NaN); }), 5);
    EXPECT_EQ(Quotient(1.0, -4.0), -0.25);
    EXPECT_EQ(SquareRoot(2.25), 1.5);
}

class ErrorTrapTest : public testing::Test
{
protected:
    static std::string BoxOf(const std::string& line)
    {
        return " ERROR REPORT|An error occured in the main subroutine.|The program will try to resume execution|"
               "but please report the following error:|" +
               line;
    }

    test::BoxRecorder boxes;
    test::FakeClock clock;
    LastError journal;
    ErrorTrap trap{"An error occured in the main subroutine.", journal};
};

TEST_F(ErrorTrapTest, GoesOnWithTheNextStepAndLeavesTheTargetAlone)
{
    double target = 7.0;
    trap.Assign(target, [] { return Quotient(1.0, 0.0); });
    EXPECT_EQ(target, 7.0);
    EXPECT_EQ(boxes.TakeOne(), BoxOf("Division by zero."));
    bool abandoned = true;
    EXPECT_FALSE(trap.Step([&] {
        SquareRoot(-1.0);
        abandoned = false;
    }));
    EXPECT_TRUE(abandoned);
    test::ExpectBox(boxes, BoxIcon::Error, BoxOf("Illegal procedure call."));
    trap.Assign(target, [] { return Infinity; });
    EXPECT_EQ(target, 7.0);
    EXPECT_EQ(boxes.TakeOne(), BoxOf("Overflow."));
    EXPECT_TRUE(trap.Step([&] { target = 8.0; }));
    EXPECT_EQ(target, 8.0);
    trap.Report(Fault(53, "File not found"));
    EXPECT_EQ(boxes.TakeOne(), BoxOf("Error 53: File not found"));
}

TEST_F(ErrorTrapTest, SameMessageWithinOneSecondIsToldOnce)
{
    const auto divide = [&] { trap.Step([] { RaiseDivisionByZero(); }); };
    const auto overflow = [&] { trap.Step([] { RaiseOverflow(); }); };
    divide();
    EXPECT_EQ(boxes.TakeOne(), BoxOf("Division by zero."));
    clock.Advance(0.5);
    divide();
    EXPECT_EQ(boxes.Count(), 0u);
    overflow(); // another text at the same moment
    EXPECT_EQ(boxes.TakeOne(), BoxOf("Overflow."));
    divide(); // only the very last message counts
    EXPECT_EQ(boxes.TakeOne(), BoxOf("Division by zero."));
    // A message that isn't shown is remembered all the same, so that a stream of them stays silent.
    for (int i = 0; i < 5; ++i) {
        clock.Advance(1.0);
        divide();
    }
    EXPECT_EQ(boxes.Count(), 0u);
    clock.Advance(2.0);
    divide();
    EXPECT_EQ(boxes.TakeOne(), BoxOf("Division by zero."));
    // Another trap with the same journal and another first line tells another text.
    ErrorTrap other("An error occured elsewhere.", journal);
    other.Step([] { RaiseDivisionByZero(); });
    EXPECT_EQ(boxes.TakeTexts().size(), 1u);
}

TEST_F(ErrorTrapTest, TimeOfTheMessageIsThatOfTheClosedBox)
{
    class SlowReader : public BoxReceiver
    {
    public:
        explicit SlowReader(test::FakeClock& fakeClock) : clock_(fakeClock) {}
        BoxAnswer Show(const Box&) override
        {
            clock_.Advance(60.0);
            ++Count;
            return BoxAnswer::Ok;
        }
        int Count = 0;

    private:
        test::FakeClock& clock_;
    } reader(clock);
    const ScopedBoxReceiver scope(reader);
    for (int i = 0; i < 3; ++i)
        trap.Step([] { RaiseOverflow(); });
    EXPECT_EQ(reader.Count, 1);
}

TEST_F(ErrorTrapTest, OtherExceptionsPassThrough)
{
    EXPECT_THROW(trap.Step([] { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_THROW(trap.Step([] { throw std::logic_error(""); }), std::logic_error);
}

TEST(WithinOneSecondTest, CountsWholeSecondsEitherWay)
{
    const auto at = [](double seconds) { return 38128.0 + seconds / 86400.0; };
    EXPECT_TRUE(WithinOneSecond(at(10.0), at(11.9)));
    EXPECT_TRUE(WithinOneSecond(at(11.9), at(10.0)));
    EXPECT_FALSE(WithinOneSecond(at(10.9), at(12.0)));
    EXPECT_FALSE(WithinOneSecond(at(12.0), at(10.9)));
    for (int second = 0; second < 86400; second += 7) // whole seconds that a double holds a hair below
        ASSERT_FALSE(WithinOneSecond(at(second), at(second + 2))) << second;
}

/// Sets the computer's time zone for one test.
class ScopedZone
{
public:
    explicit ScopedZone(const char* zone)
    {
        if (const char* former = std::getenv("TZ")) former_ = former;
        setenv("TZ", zone, 1);
        tzset();
    }
    ~ScopedZone()
    {
        former_ ? setenv("TZ", former_->c_str(), 1) : unsetenv("TZ");
        tzset();
    }

private:
    std::optional<std::string> former_;
};

TEST(Clocks, ScopesNestAndTheSystemClockKeepsUtc)
{
    const double unixNow = std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    const Clock::Moment now = CurrentClock().Now();
    EXPECT_NEAR((now.Utc - 25569.0) * 86400.0, unixNow, 5.0);
    {
        const ScopedZone zone("XXX-3:30");
        const Clock::Moment moment = CurrentClock().Now();
        EXPECT_NEAR((moment.Local - moment.Utc) * 24.0, 3.5, 1e-6);
    }
    {
        test::FakeClock outer(38128.5, 2.0 / 24.0);
        {
            test::FakeClock inner(1.0);
            EXPECT_EQ(CurrentClock().Now().Utc, 1.0);
        }
        EXPECT_EQ(CurrentClock().Now().Local, 38128.5 + 2.0 / 24.0);
        CurrentClock().ProcessEvents();
        EXPECT_EQ(outer.Events, 1);
    }
    EXPECT_NE(CurrentClock().Now().Utc, 38128.5);
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
