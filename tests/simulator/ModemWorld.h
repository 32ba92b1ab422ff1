#pragma once

#include "simulator/SimulatedModem.h"
#include "support/VirtualClock.h"

#include <gtest/gtest.h>

inline const QByteArray kOk = "\r\nOK\r\n";
inline const QByteArray kError = "\r\nERROR\r\n";
inline const QByteArray kPrompt = "\r\n> ";
inline const QByteArray kSent = "\r\n+CMGS: 0\r\n\r\nOK\r\n";
inline const QByteArray kWithReports = "AT+CSMP=49,167,0,0;+CNMI=1,1,0,2,1\r";
inline const QString kStranger = u"+4791111111"_qs;

/// A modem without echo on a network in virtual time, which starts at 9:00:00 on 1 December 2026,
/// what it said, and what reached the one other phone.
struct ModemWorld {
    explicit ModemWorld(const QByteArray &settings = "AT+CNMI=1,1\r")
    {
        modem.setOutput([this](const QByteArray &bytes) { said += bytes; });
        const auto take = [this](const SmsMessage &message) {
            received += message.text + '|';
            return true;
        };
        network.addPhone(kStranger, {take, {}});
        modem.receive("ATE0\r" + settings);
    }

    /// What the modem says to these characters, at once and in the course of this time.
    QByteArray say(const QByteArray &bytes, milliseconds time = 0ms)
    {
        said.clear();
        modem.receive(bytes);
        clock.run(time);
        return std::exchange(said, {});
    }
    QByteArray listen(milliseconds time) { return say({}, time); }
    QByteArray list(const QByteArray &which = "ALL") { return say("AT+CMGL=" + which + "\r"); }
    /// Prompt and all that follows on a text, up to the end of its submission.
    QByteArray submit(const QByteArray &text = "Hei", const QByteArray &to = "+4791111111")
    {
        return say("AT+CMGS=" + to + '\r' + text + '\x1a', 2s);
    }
    /// What the modem says while a message arrives.
    QByteArray arrive(const QByteArray &text = "Hei", const QString &from = kStranger)
    {
        network.send(from, modem.ownNumber(), text);
        return listen(2s);
    }
    /// The texts that have reached the other phone once nothing is under way, each with a "|".
    QByteArray delivered()
    {
        clock.run(10s);
        return received;
    }

    VirtualClock clock;
    SmsNetwork network{clock};
    SimulatedModem modem{clock, network, u"+4799000000"_qs};
    QByteArray said;
    QByteArray received;
};

struct ModemTest : testing::Test, ModemWorld {};

/// Readable in GoogleTest's messages.
inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    *out << bytes.toPercentEncoding(" \"+,:;<>=?&/").constData();
}
