#include "support/VirtualClock.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

// So many turns without the time moving is a loop that would hang the real program too.
constexpr long kHang = 50'000'000;

} // namespace

class VirtualTimer : public Timer {
public:
    VirtualTimer(VirtualClock &clock, std::function<void()> tick)
        : clock_(clock), tick_(std::move(tick))
    {
    }
    ~VirtualTimer() override { disarm(); }

private:
    void disarm()
    {
        if (armed_) {
            clock_.due_.erase(entry_);
            armed_ = false;
        }
    }
    void startCount(bool running) override
    {
        disarm();
        if (running) {
            entry_ = clock_.schedule(clock_.elapsed() + interval(), [this] {
                armed_ = false;
                startCount(isRunning());
                tick_();
            });
            armed_ = true;
        }
    }

    VirtualClock &clock_;
    std::function<void()> tick_;
    bool armed_ = false;
    VirtualClock::Entry entry_;
};

VirtualClock::VirtualClock(QDateTime start) : start_(std::move(start)) {}

VirtualClock::~VirtualClock() = default;

VirtualClock::Entry VirtualClock::schedule(milliseconds due, std::function<void()> happening)
{
    return due_.emplace(due, std::move(happening));
}

void VirtualClock::after(milliseconds delay, std::function<void()> happening)
{
    schedule(elapsed_ + delay, std::move(happening));
}

std::unique_ptr<Timer> VirtualClock::timer(std::function<void()> tick)
{
    return std::make_unique<VirtualTimer>(*this, std::move(tick));
}

bool VirtualClock::runNext(milliseconds until)
{
    if (due_.empty() || due_.begin()->first > until) {
        return false;
    }
    if (due_.begin()->first > elapsed_) {
        elapsed_ = due_.begin()->first;
        standingStill_ = 0;
    }
    auto node = due_.extract(due_.begin());
    node.mapped()();
    return true;
}

void VirtualClock::yield(milliseconds atMost)
{
    if (onYield) {
        onYield();
    }
    throwIfEnded();
    if (++standingStill_ > kHang) {
        std::fputs("The program waits without the time ever moving.\n", stderr);
        std::abort();
    }
    if (atMost <= 0ms) {
        while (runNext(elapsed_)) {
            throwIfEnded();
        }
        return;
    }
    const milliseconds until = elapsed_ + atMost;
    if (!runNext(until)) {
        elapsed_ = until;
        standingStill_ = 0;
    }
    if (QCoreApplication::instance() != nullptr) {
        QCoreApplication::processEvents();
    }
    throwIfEnded();
}

void VirtualClock::sleep(milliseconds time)
{
    const milliseconds until = elapsed_ + time;
    do {
        yield(until - elapsed_);
    } while (elapsed_ < until);
}

void VirtualClock::run(milliseconds time)
{
    const milliseconds until = elapsed_ + time;
    while (!ended_ && runNext(until)) {
    }
    if (!ended_) {
        elapsed_ = std::max(elapsed_, until);
    }
    if (QCoreApplication::instance() != nullptr) {
        QCoreApplication::processEvents();
    }
}

bool VirtualClock::runUntil(const std::function<bool()> &condition, milliseconds limit)
{
    const milliseconds until = elapsed_ + limit;
    while (!condition()) {
        if (ended_ || !runNext(until)) {
            return false;
        }
    }
    return true;
}

void VirtualClock::throwIfEnded() const
{
    if (ended_) {
        throw ProgramEnds();
    }
}
