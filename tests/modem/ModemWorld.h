#pragma once

#include "support/Bench.h"

#include <QList>
#include <QMap>

/// A modem that answers each command from a list, a little later.
class ListedModem {
public:
    ListedModem(VirtualClock &clock, std::function<void(const QByteArray &)> say)
        : clock_(clock), say_(std::move(say))
    {
    }

    void hears(const QByteArray &bytes)
    {
        for (const char byte : bytes) {
            const char end = inText_ ? '\x1A' : '\r';
            if (byte != end) {
                heard_ += byte;
            } else {
                answer(std::exchange(heard_, {}));
            }
        }
    }

    bool isMute = false;
    /// By command; "OK" for all others.
    QMap<QByteArray, QByteArray> answers = {
        {"AT+CPMS=\"MT\",\"MT\",\"MT\"", "\r\n+CPMS: 1,30,1,30,1,30\r\n\r\nOK\r\n"},
        {"AT+CPMS=\"SM\",\"SM\",\"SM\"", "\r\n+CPMS: 1,20,1,20,1,20\r\n\r\nOK\r\n"},
        {"AT+CGMI", "\r\nNordtone\r\n\r\nOK\r\n"},
        {"AT+CGMM", "\r\nNT-2\r\n\r\nOK\r\n"},
        {"AT+GSN", "\r\n350000000000017\r\n\r\nOK\r\n"},
    };
    QByteArray prompt = "\r\n> ";
    QByteArray result = "\r\n+CMGS: 17\r\n\r\nOK\r\n";
    QList<QByteArray> commands;
    QList<QByteArray> texts; ///< of the messages

private:
    void answer(const QByteArray &heard)
    {
        QByteArray reply = answers.value(heard, "\r\nOK\r\n");
        if (inText_) {
            texts += heard;
            inText_ = false;
            reply = result;
        } else {
            commands += heard;
            if (heard.startsWith("AT+CMGS=")) {
                inText_ = !prompt.isEmpty() && !isMute;
                reply = prompt;
            }
        }
        if (!isMute && !reply.isEmpty()) {
            clock_.after(20ms, [this, reply] { say_(reply); });
        }
    }

    VirtualClock &clock_;
    std::function<void(const QByteArray &)> say_;
    QByteArray heard_;
    bool inText_ = false;
};

/// With a modem that answers at the far end of both lines.
struct ModemBench : Bench {
    ModemBench()
    {
        link.watcher.StartNyBruker = [this] { steps += u"feed"_qs; };
        link.watcher.Read_SMS_MessageTEXT = [this] { steps += u"read"_qs; };
        port.onWrite = [this](const QByteArray &bytes) { comModem.hears(bytes); };
        socket.onWrite = [this](const QByteArray &bytes) { networkModem.hears(bytes); };
    }

    ListedModem &modem(bool network) { return network ? networkModem : comModem; }
    void say(bool network, const QByteArray &bytes)
    {
        network ? link.line.socketData(bytes) : port.feed(bytes);
    }

    ListedModem comModem{clock, [this](const QByteArray &bytes) { port.feed(bytes); }};
    ListedModem networkModem{clock, [this](const QByteArray &bytes) { socket.feed(bytes); }};
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
