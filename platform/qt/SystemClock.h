#pragma once

#include "platform/Clock.h"

#include <QElapsedTimer>

/// The machine's time, on Qt's event loop. Needs a QCoreApplication.
class SystemClock : public Clock {
public:
    SystemClock();
    ~SystemClock() override;
    QDateTime now() const override;
    milliseconds elapsed() const override;
    void yield(milliseconds atMost) override;
    void sleep(milliseconds time) override;
    std::unique_ptr<Timer> timer(std::function<void()> tick) override;
    void end() override;
    bool hasEnded() const override { return ended_; }

private:
    void throwIfEnded() const;

    QElapsedTimer sinceStart_;
    bool ended_ = false;
};
