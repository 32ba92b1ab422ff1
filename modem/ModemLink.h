#pragma once

#include "modem/CharacterTables.h"
#include "modem/LineSelection.h"
#include "modem/ModemFlags.h"
#include "modem/ModemInitialiser.h"
#include "modem/ModemLine.h"
#include "modem/ModemResponse.h"
#include "modem/ModemWatcher.h"
#include "modem/OutboundQueue.h"
#include "modem/SendPace.h"
#include "modem/SmsSubmitter.h"

#include <memory>

/// The modem side put together. Both timers stand off until a modem was initialised. The tables
/// are empty until BuildCharacterTables; the watcher's two functions are set from above.
class ModemLink {
public:
    ModemLink(Clock &clock, const Host &host, Operator &person, SerialPort &MSComm1,
              TcpSocket &Winsock1, ModemView &view, Module1 &module, Recordsets &recordsets);
    /// Switches both timers off and lets go of the socket's events.
    ~ModemLink();
    ModemLink(const ModemLink &) = delete;
    ModemLink &operator=(const ModemLink &) = delete;

    ModemFlags flags;
    CharacterTables tables;
    ModemResponse response;
    ModemLine line;
    std::unique_ptr<Timer> TimerCom; ///< 1000 ms
    SendPace pace;                   ///< TimerSEND_SMS
    ModemInitialiser initialiser;
    SmsSubmitter submitter;
    OutboundQueue queue;
    ModemWatcher watcher;
    LineSelection selection;
};
