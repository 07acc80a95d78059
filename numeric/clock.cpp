#include "numeric/clock.h"

#include <chrono>
#include <cmath>
#include <ctime>
#include <thread>

namespace merov::numeric
{
namespace
{

constexpr double SecondsPerDay = 86400.0;
constexpr double UnixEpoch = 25569.0; // 1 January 1970 as a date-time

class SystemClock : public Clock
{
public:
    Moment Now() override
    {
        const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
        const double seconds = std::chrono::duration<double>(sinceEpoch).count();
        const std::time_t whole = static_cast<std::time_t>(std::floor(seconds));
        std::tm local{};
        localtime_r(&whole, &local);
        const double utc = UnixEpoch + seconds / SecondsPerDay;
        return {utc, utc + static_cast<double>(local.tm_gmtoff) / SecondsPerDay};
    }

    void ProcessEvents() override { std::this_thread::sleep_for(std::chrono::milliseconds(5)); }
};

Clock* Current = nullptr;

} // namespace

Clock& CurrentClock()
{
    static SystemClock systemClock;
    return Current != nullptr ? *Current : systemClock;
}

ScopedClock::ScopedClock(Clock& clock) : former_(Current)
{
    Current = &clock;
}

ScopedClock::~ScopedClock()
{
    Current = former_;
}

bool WithinOneSecond(double first, double second)
{
    // A date-time holds a second only to some 1e-7 of it, so a whole second may stand a hair below.
    const auto wholeSecond = [](double time) { return std::floor(time * SecondsPerDay + 1e-4); };
    return std::fabs(wholeSecond(first) - wholeSecond(second)) <= 1.0;
}

} // namespace merov::numeric
