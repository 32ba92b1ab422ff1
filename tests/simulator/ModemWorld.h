#pragma once

#include "simulator/DoorUnit.h"
#include "simulator/SimulatedModem.h"
#include "support/VirtualClock.h"

#include <ostream>

/// A modem on a network in virtual time, and what it said.
struct ModemWorld {
    ModemWorld()
    {
        modem.setOutput([this](const QByteArray &bytes) { said += bytes; });
    }

    /// What the modem says to these characters at once.
    QByteArray say(const QByteArray &bytes)
    {
        said.clear();
        modem.receive(bytes);
        return std::exchange(said, {});
    }
    /// What it says in the course of this time.
    QByteArray listen(milliseconds time)
    {
        said.clear();
        clock.run(time);
        return std::exchange(said, {});
    }
    /// A message that is in the modem's storage at once.
    void arrive(const QString &from, const QByteArray &text)
    {
        network.send(from, modem.ownNumber(), text);
        clock.run(2s);
    }
    /// Registers a phone that remembers what it got.
    void addPhone(const QString &number)
    {
        network.addPhone(number, {[this](const SmsMessage &message) {
                                      received.push_back(message);
                                      return true;
                                  },
                                  {}});
    }

    VirtualClock clock;
    SmsNetwork network{clock};
    SimulatedModem modem{clock, network, QStringLiteral("+4799000000")};
    QByteArray said;
    std::vector<SmsMessage> received;
};

/// Readable in GoogleTest's messages.
inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    QByteArray shown;
    for (const char byte : bytes) {
        if (byte == '\r') {
            shown += "\\r";
        } else if (byte == '\n') {
            shown += "\\n";
        } else if (byte >= ' ') {
            shown += byte;
        } else {
            shown += "<" + QByteArray::number(static_cast<unsigned char>(byte)) + ">";
        }
    }
    *out << shown.constData();
}
