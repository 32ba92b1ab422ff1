#pragma once

#include "modem/ModemFlags.h"
#include "modem/SendPace.h"
#include "platform/Clock.h"
#include "platform/RuntimeFailure.h"

/// The interpreter's one rule for failures: a step that fails is left out, its target keeps the
/// value that it had, and the very next step runs. So no text, however broken, keeps a message
/// from being filed and deleted. Nothing is shown and nothing is logged.
///
/// Each failure sets the modem side going again at once (TimerCom on, ReadingMessages off,
/// TimerSEND_SMS in 3000 ms), so that a record which stops half-way never leaves it dead. Ticks
/// may therefore come in while the interpreter still works.
class ErrorRule {
public:
    ErrorRule(Timer &TimerCom, ModemFlags &flags, SendPace &pace)
        : TimerCom_(TimerCom), flags_(flags), pace_(pace)
    {
    }

    /// Runs one step. Gives false when it failed, and says why to whom it concerns.
    template <typename Step> bool step(const Step &step, QString *why = nullptr)
    {
        try {
            step();
            return true;
        } catch (const RuntimeFailure &failure) {
            rearm();
            if (why != nullptr) {
                *why = failure.description();
            }
            return false;
        }
    }

    /// The outcome of a test. One that fails counts as taken: the block behind it runs.
    template <typename Test> bool test(const Test &test)
    {
        bool taken = true;
        step([&] { taken = test(); });
        return taken;
    }

    /// The outcome of a lookup. Behind one that failed no row is changed, since the set still
    /// stands on some row that a stranger's text does not name, and none is added, since there may
    /// be one.
    enum class Lookup { Hit, None, Failed };
    template <typename Find> Lookup lookup(const Find &find)
    {
        Lookup outcome = Lookup::Failed;
        step([&] { outcome = find() ? Lookup::Hit : Lookup::None; });
        return outcome;
    }
    /// For what only a hit means something to.
    template <typename Find> bool found(const Find &find) { return lookup(find) == Lookup::Hit; }

private:
    void rearm()
    {
        TimerCom_.setEnabled(true);
        flags_.ReadingMessages = false;
        pace_.restart(3000ms);
    }

    Timer &TimerCom_;
    ModemFlags &flags_;
    SendPace &pace_;
};
