#include "platform/qt/SystemClock.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace {

// QTimer doesn't tick while its own handler waits in a nested event loop. Ours must, so each tick
// re-arms with a fresh timer of the event loop before the handler runs.
class SystemTimer : public QObject, public Timer {
public:
    SystemTimer(std::function<void()> tick, const SystemClock &clock)
        : tick_(std::move(tick)), clock_(clock)
    {
    }

protected:
    void timerEvent(QTimerEvent *event) override
    {
        if (event->timerId() != id_ || clock_.hasEnded()) {
            return;
        }
        startCount(isRunning());
        tick_();
    }

private:
    void startCount(bool running) override
    {
        if (id_ != 0) {
            killTimer(std::exchange(id_, 0));
        }
        if (running) {
            id_ = startTimer(interval(), Qt::PreciseTimer); // 30 s are 30 s
        }
    }

    std::function<void()> tick_;
    const SystemClock &clock_;
    int id_ = 0;
};

} // namespace

SystemClock::SystemClock()
{
    sinceStart_.start();
}

SystemClock::~SystemClock() = default;

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTime();
}

milliseconds SystemClock::elapsed() const
{
    return milliseconds(sinceStart_.elapsed());
}

void SystemClock::yield(milliseconds atMost)
{
    throwIfEnded();
    if (atMost <= 0ms) {
        QCoreApplication::processEvents();
    } else {
        // The timer's own event is what wakes processEvents when nothing else comes.
        QTimer limit;
        limit.setSingleShot(true);
        limit.setTimerType(Qt::PreciseTimer);
        limit.start(atMost);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    throwIfEnded();
}

void SystemClock::sleep(milliseconds time)
{
    const milliseconds until = elapsed() + time;
    do {
        yield(std::max(until - elapsed(), 0ms));
    } while (elapsed() < until);
}

std::unique_ptr<Timer> SystemClock::timer(std::function<void()> tick)
{
    return std::make_unique<SystemTimer>(std::move(tick), *this);
}

void SystemClock::end()
{
    ended_ = true;
}

void SystemClock::throwIfEnded() const
{
    if (ended_) {
        throw ProgramEnds();
    }
}
