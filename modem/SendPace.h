#pragma once

#include "modem/ModemFlags.h"
#include "platform/Clock.h"

/// TimerSEND_SMS: the pace of listing and sending. 2000 ms after an event, 3000 ms after an action
/// on a screen, 30000 ms after a message was sent; idle, it slows down to 60000 ms.
class SendPace {
public:
    SendPace(Clock &clock, const ModemFlags &flags, std::function<void()> tick);

    /// Switches the timer off, sets the interval and switches it on.
    void restart(milliseconds interval);
    void stop();
    milliseconds interval() const;
    bool isRunning() const;
    /// How long until the next tick; only while it is running.
    milliseconds untilTick() const;
    /// Times 1.5, rounded half to even, from under 29000 ms; else straight to 60000 ms.
    void slowDown();
    /// restart(3000 ms), unless QueuePending: the 30 seconds between two messages stand.
    void hurry();

private:
    Clock &clock_;
    const ModemFlags &flags_;
    std::unique_ptr<Timer> timer_;
    milliseconds started_{0};
};
