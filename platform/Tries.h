#pragma once

#include "platform/Clock.h"
#include "platform/RuntimeFailure.h"

class Operator;

/// Somebody else has the file just now: the same may go well a moment later.
class InOtherHands : public RuntimeFailure {
public:
    using RuntimeFailure::RuntimeFailure;
};

/// The rule of Rules.h for what goes on by itself and is tried again: a file that is in other hands
/// for a moment is no news. When it lasts the operator is told, once; of any other failure at once.
class Tries {
public:
    /// Between two tries of what should be there soon.
    static constexpr milliseconds kPause = 500ms;

    explicit Tries(Operator &person, int atMost = 10) : person_(person), atMost_(atMost) {}
    /// Gives whether it went well.
    bool operator()(const std::function<void()> &handler);
    /// So many failed, one behind the other, that the operator has been told.
    bool haveFailed() const { return failures_ >= atMost_; }
    void beginAnew() { failures_ = 0; }

private:
    Operator &person_;
    int atMost_;
    int failures_ = 0;
};
