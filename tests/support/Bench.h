#pragma once

#include "data/Connection.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLink.h"
#include "support/FakeMachine.h"
#include "support/TestDatabase.h"

/// The program without its screens, up to the modem side, on doubles and the virtual clock. It has
/// no database and no line, and what the watcher hands on is lost, until a test says otherwise.
struct Bench : FakeMachine {
    Bench()
    {
        module.LoginComputer = host.computer;
        link.tables.BuildCharacterTables();
        link.watcher.StartNyBruker = [] {};
        link.watcher.Read_SMS_MessageTEXT = [] {};
    }

    /// The modem's line is there: the network's or COM1.
    void open(bool network)
    {
        module.ActiveComPort = network ? kNetworkModem : 1;
        network ? socket.connectTo(u"modem"_qs, 23) : port.open(u"COM1"_qs);
        clock.run(1ms);
    }
    void ready(bool network)
    {
        open(network);
        module.ModemReady = true;
    }

    RecordingView view;
    Module1 module;
    Recordsets recordsets{module, person};
    ModemLink link{clock, host, person, port, socket, view, module, recordsets};
};
