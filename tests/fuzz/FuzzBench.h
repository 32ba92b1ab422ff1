#pragma once

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLink.h"
#include "support/Doubles.h"
#include "support/FakeLines.h"

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

/// A person who closes every box.
class PatientOperator : public Operator {
public:
    Answer messageBox(const QString &, const QString &, Buttons) override { return Answer::Ok; }
    QString inputBox(const QString &, const QString &, const QString &) override { return {}; }
    QString chooseFile(const QString &, const QString &) override { return {}; }
    void beep() override {}
    void setBusy(bool) override {}
};

/// The modem side on both lines at once, with nobody at the far ends, and no database.
struct FuzzBench {
    FuzzBench()
    {
        testing::GTEST_FLAG(break_on_failure) = true; // the doubles report misuse as test failures
        link.tables.BuildCharacterTables();
        link.watcher.StartNyBruker = [] {};
        link.watcher.Read_SMS_MessageTEXT = [] {};
    }
    void open(bool network)
    {
        module.ActiveComPort = network ? kNetworkModem : 1;
        network ? socket.connectTo(u"modem"_qs, 23) : port.open(u"COM1"_qs);
        clock.run(1ms);
        module.ModemReady = true;
    }
    void say(const QByteArray &bytes)
    {
        module.ActiveComPort == kNetworkModem ? socket.feed(bytes) : port.feed(bytes);
    }

    VirtualClock clock;
    PatientOperator person;
    FakeHost host;
    FakeSerialPort port;
    FakeTcpSocket socket{clock};
    RecordingView view;
    Module1 module;
    Recordsets recordsets{module, person};
    ModemLink link{clock, host, person, port, socket, view, module, recordsets};
};
