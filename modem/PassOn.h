#pragma once

#include "platform/Clock.h"

/// For an operation that ends its failures by a rule of its own while others wait for its outcome:
/// the rule ends the end of the program too, and they must not take that for an outcome.
/// @throws ProgramEnds when the program has ended.
inline void passOnTheEnd(const Clock &clock)
{
    if (clock.hasEnded()) {
        throw ProgramEnds();
    }
}
