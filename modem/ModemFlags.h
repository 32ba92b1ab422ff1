#pragma once

#include "modem/LineOwner.h"

/// What the modem side is at. The timers test these before they act; everything runs on one thread,
/// so plain values do.
struct ModemFlags {
    bool QueueRunning = false;     ///< the queue owns the modem
    bool ModemInitRunning = false; ///< the initialisation owns it; lingers after a failed search
    bool WaitingForCmgs = false;   ///< a submission result is awaited
    bool QueueAwaited = false;     ///< somebody waits for it: no further attempt is begun
    bool QueuePending = false;     ///< a row was sent: the 30 seconds between sends stand
    bool ReadingMessages = false;  ///< a listing is being read
    bool ComposingSms = false;     ///< a free-text message is being composed
    bool EchoIsUsual = false;      ///< the modem echoes though it was told not to
    bool HasForgotten = false;     ///< the modem has started by itself, and lost its settings
    int initialisations = 0;       ///< so far: whoever waits sees whether the line is still his
    LineOwner owner;
};
