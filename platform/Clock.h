#pragma once

#include <QDateTime>

#include <chrono>
#include <functional>
#include <memory>

using std::chrono::milliseconds;
using namespace std::chrono_literals;

/// Thrown by every wait once the program has ended: whatever dialogue stands on the stack is
/// abandoned, and the process ends at once. It is no failure and no one reports it; only the
/// rules of Rules.h catch it, at the edge of an event.
struct ProgramEnds {};

/// A repeating timer of one event source. It starts switched off.
///
/// Setting the interval or switching it on starts the count afresh, also with the value that it
/// had. An interval of 0 never ticks. A tick may come in while the function of an earlier one is
/// still waiting somewhere: those who mind test their flags first.
class Timer {
public:
    virtual ~Timer() = default;
    void setInterval(milliseconds interval)
    {
        interval_ = interval;
        startCount(isRunning());
    }
    milliseconds interval() const { return interval_; }
    void setEnabled(bool enabled)
    {
        enabled_ = enabled;
        startCount(isRunning());
    }
    bool isEnabled() const { return enabled_; }

protected:
    bool isRunning() const { return enabled_ && interval_ > milliseconds::zero(); }
    /// Drops the count that is under way, if there is one, and starts another when running.
    virtual void startCount(bool running) = 0;

private:
    milliseconds interval_{0};
    bool enabled_ = false;
};

/// All time that the program knows: dates, time-outs, waits and timers.
/// Nothing else may wait, and no other code runs an event loop.
class Clock {
public:
    virtual ~Clock() = default;
    /// Wall time, for dates. It may jump.
    virtual QDateTime now() const = 0;
    /// Time since some fixed moment, for time-outs. It never goes back.
    virtual milliseconds elapsed() const = 0;
    /// Runs pending events, and comes back behind the first that it ran, or when atMost has
    /// passed. With 0 it runs what is pending and doesn't wait. Handlers run inside it.
    /// @throws ProgramEnds after end().
    virtual void yield(milliseconds atMost) = 0;
    /// Waits the whole time, with events running meanwhile.
    /// @throws ProgramEnds after end().
    virtual void sleep(milliseconds time) = 0;
    virtual std::unique_ptr<Timer> timer(std::function<void()> tick) = 0;
    /// From now on every wait throws ProgramEnds and no timer ticks.
    virtual void end() = 0;
    virtual bool hasEnded() const = 0;
};
