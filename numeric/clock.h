#pragma once

namespace merov::numeric
{

/// The computer's clock and the event loop, as the core sees them. A front end or a test may put its
/// own in place of the system's.
class Clock
{
public:
    virtual ~Clock() = default;

    /// The system clock's UTC and the computer's local time, both as date-times: days since
    /// 30 December 1899, 00:00, the fraction being the time of day.
    struct Moment {
        double Utc;
        double Local;
    };

    /// Both times of one instant, read at one moment.
    virtual Moment Now() = 0;

    /// Lets the screens handle their pending events; does nothing where there is no screen. It may
    /// sleep for a few milliseconds.
    virtual void ProcessEvents() = 0;
};

/// The clock in force: the system's own unless a ScopedClock replaces it.
Clock& CurrentClock();

/// Makes `clock` the clock in force for its own lifetime, then puts the former one back. The clock
/// must outlive it. Scopes nest; they end in the reverse order of their beginning.
class ScopedClock
{
public:
    explicit ScopedClock(Clock& clock);
    ~ScopedClock();
    ScopedClock(const ScopedClock&) = delete;
    ScopedClock& operator=(const ScopedClock&) = delete;

private:
    Clock* former_;
};

/// True when two date-times lie at most one second apart, each cut to the whole second, either way.
/// This is how long a message counts as just shown.
bool WithinOneSecond(double first, double second);

} // namespace merov::numeric
