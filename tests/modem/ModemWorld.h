#pragma once

#include "simulator/Personalities.h"
#include "support/Bench.h"
#include "support/FarModem.h"

/// With a modem that answers at the far end of both lines.
struct ModemBench : Bench, FarModem {
    ModemBench() : FarModem(static_cast<FakeMachine &>(*this))
    {
        link.watcher.StartNyBruker = [this] { steps += u"feed"_qs; };
        link.watcher.Read_SMS_MessageTEXT = [this] { steps += u"read"_qs; };
    }

    /// The modem is as this personality from now on; without one, in good order.
    void becomes(const QString &words = {})
    {
        modem.faults() = {};
        if (!words.isEmpty()) {
            addPersonality(modem.faults(), words);
        }
    }
    void say(bool onNetwork, const QByteArray &bytes)
    {
        onNetwork ? link.line.socketData(bytes) : port.feed(bytes);
    }

    QStringList steps; ///< calls of what stands in higher folders
};

/// The same with a database as delivered.
struct ModemWorld : ModemBench {
    ModemWorld()
    {
        database.use(module);
        recordsets.OpenRecordsets();
    }
    /// A message that waits in the outbox, unless its state says otherwise.
    void waits(const QString &text, int DatoLNG = 46357, const QString &CMGS = u"UNSENT"_qs,
               const QString &TilNummer = u"+4790000001"_qs)
    {
        database.add(u"SMS_Sent"_qs, u"TilNummer,SMS_Text,DatoLNG,CMGS"_qs,
                     {TilNummer, text, DatoLNG, CMGS});
        recordsets.OpenRecordsets();
    }

    TestDatabase database;
};
