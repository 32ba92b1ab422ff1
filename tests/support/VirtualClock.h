#pragma once

#include "platform/Clock.h"

#include <map>

/// Time that jumps to the next thing to happen instead of waiting: a week of doors in a second, and
/// the same way each time. Whatever may re-enter in the program re-enters here too, in the order
/// of due times, and within one moment in the order of arming.
class VirtualClock : public Clock {
public:
    explicit VirtualClock(QDateTime start = QDateTime(QDate(2026, 12, 1), QTime(9, 0)));
    ~VirtualClock() override;

    QDateTime now() const override { return start_.addMSecs(elapsed_.count()); }
    milliseconds elapsed() const override { return elapsed_; }
    void yield(milliseconds atMost) override;
    void sleep(milliseconds time) override;
    std::unique_ptr<Timer> timer(std::function<void()> tick) override;
    void end() override { ended_ = true; }
    bool hasEnded() const override { return ended_; }
    /// The program's thread stands still for so long: nothing happens meanwhile, and late then.
    void stand(milliseconds time) { elapsed_ += time; }
    /// For another start of the program; the world outside goes on as it was.
    void goOn() { ended_ = false; }

    std::function<void()> onYield; ///< called when the program waits

    /// Something of the world outside that happens once, behind the delay.
    void after(milliseconds delay, std::function<void()> happening);
    /// Lets the time go by, from outside of any handler.
    void run(milliseconds time);
    /// Lets the time go by until the condition holds; false when it never does within the limit.
    bool runUntil(const std::function<bool()> &condition, milliseconds limit);

private:
    friend class VirtualTimer;
    using Entry = std::multimap<milliseconds, std::function<void()>>::iterator;

    Entry schedule(milliseconds due, std::function<void()> happening);
    bool runNext(milliseconds until);
    void throwIfEnded() const;

    QDateTime start_;
    milliseconds elapsed_{0};
    std::multimap<milliseconds, std::function<void()>> due_;
    long standingStill_ = 0;
    bool ended_ = false;
};
