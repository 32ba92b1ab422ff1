#include "modem/SendPace.h"

#include <utility>

namespace {

constexpr milliseconds kFirst = 10000ms;
constexpr milliseconds kAfterScreenAction = 3000ms;
constexpr milliseconds kSlow = 29000ms;
constexpr milliseconds kSlowest = 60000ms;

milliseconds halfToEven(milliseconds doubled)
{
    const auto whole = doubled.count() / 2;
    return milliseconds(whole + (doubled.count() % 2 != 0 && whole % 2 != 0 ? 1 : 0));
}

} // namespace

SendPace::SendPace(Clock &clock, const ModemFlags &flags, std::function<void()> tick)
    : clock_(clock), flags_(flags), timer_(clock.timer(std::move(tick)))
{
    timer_->setInterval(kFirst);
}

void SendPace::restart(milliseconds interval)
{
    timer_->setEnabled(false);
    timer_->setInterval(interval);
    timer_->setEnabled(true);
    started_ = clock_.elapsed();
}

void SendPace::stop()
{
    timer_->setEnabled(false);
}

milliseconds SendPace::interval() const
{
    return timer_->interval();
}

bool SendPace::isRunning() const
{
    return timer_->isEnabled();
}

milliseconds SendPace::untilTick() const
{
    return interval() - (clock_.elapsed() - started_) % interval();
}

void SendPace::slowDown()
{
    restart(interval() < kSlow ? halfToEven(interval() * 3) : kSlowest);
}

void SendPace::hurry()
{
    if (!flags_.QueuePending) {
        restart(kAfterScreenAction);
    }
}
