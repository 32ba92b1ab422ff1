#pragma once

#include "support/Doubles.h"
#include "support/FakeLines.h"

/// Person and PC as doubles, on the virtual clock.
struct FakeMachine {
    VirtualClock clock;
    ScriptedOperator person{clock};
    FakeHost host;
    MemorySettings settings;
    FakeSerialPort port;
    FakeTcpSocket socket{clock};
};
