#pragma once

#include "numeric/clock.h"

#include <functional>

namespace merov::test
{

/// A clock that stands still until a test moves it; each ProcessEvents moves it by `step` seconds.
class FakeClock : public numeric::Clock
{
public:
    /// @param utc     the time it shows, a date-time; 38128.5 is 21 May 2004, 12:00
    /// @param offset  local time minus UTC, days
    explicit FakeClock(double utc = 38128.5, double offset = 0.0) : utc_(utc), offset_(offset), scope_(*this) {}

    Moment Now() override { return {utc_, utc_ + offset_}; }
    void ProcessEvents() override
    {
        ++Events;
        Advance(Step);
        if (OnEvents) OnEvents();
    }
    void Advance(double seconds) { utc_ += seconds / 86400.0; }

    int Events = 0;                 ///< calls of ProcessEvents
    double Step = 0.01;             ///< seconds by which each of them moves the clock
    std::function<void()> OnEvents; ///< what the user does meanwhile

private:
    double utc_;
    double offset_;
    numeric::ScopedClock scope_;
};

} // namespace merov::test
