#pragma once

#include "support/Bench.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

/// Ends the process: the fuzzer keeps the input as a finding.
inline void require(bool holds, const char *what)
{
    if (!holds) {
        std::fprintf(stderr, "Broken: %s\n", what);
        std::abort();
    }
}

/// The modem side on both lines at once, with nobody at the far ends, no database, and a person who
/// closes every box.
struct FuzzBench : Bench {
    FuzzBench()
    {
        testing::GTEST_FLAG(break_on_failure) = true; // the doubles report misuse as test failures
        person.isPatient = true;
    }
    void say(const QByteArray &bytes)
    {
        module.ActiveComPort == kNetworkModem ? socket.feed(bytes) : port.feed(bytes);
    }
};
