#pragma once

#include <utility>

/// Who speaks with the modem: one at a time, since whoever reads takes the other's lines. A timer
/// begins nothing while somebody does, unless a box holds the watcher's read up. A click (a change
/// of line, an initialisation) awaits the queue; from anybody else it takes the line, which goes
/// back to him then.
///
///     Nobody ──► Queue          TimerSEND_SMS
///       │ │ └──► Initialiser    a click, or a modem that has forgotten its settings
///       │ └────► Interpreter    the header of a record
///       └──────► Watcher        TimerCom, at a line
class LineOwner {
public:
    enum class Who {
        Nobody,
        Watcher,     ///< a tick of TimerCom is at a line
        Interpreter, ///< reads a listing and deletes a record of it
        Queue,       ///< submits a message
        Initialiser
    };

    /// Has the line for as long as it lives.
    class Turn {
    public:
        Turn(LineOwner &owner, Who who) : owner_(owner), before_(std::exchange(owner.who_, who)) {}
        ~Turn() { owner_.who_ = before_; }
        Turn(const Turn &) = delete;
        Turn &operator=(const Turn &) = delete;

    private:
        LineOwner &owner_;
        Who before_;
    };

    Who who() const { return who_; }

private:
    Who who_ = Who::Nobody;
};
