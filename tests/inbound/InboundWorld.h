#pragma once

#include "support/Corpus.h"
#include "support/ReaderBench.h"

#include <map>

/// The inbound side with a modem on COM1 that holds messages in its store, lists them and deletes
/// them. Two doors stand in KEYTable: kDoor, "Hovedport", and +4790000002, which has no name.
struct InboundWorld : ReaderBench {
    static constexpr const char *kDoor = "+4790000001";

    InboundWorld()
    {
        database.use(module);
        for (Connection *const connection : {&database.look(), module.DatabaseConnection.get()}) {
            connection->run(u"PRAGMA synchronous = OFF"_qs); // no test outlives a power cut
        }
        addDoors();
        ready(false);
        port.onWrite = [this](const QByteArray &bytes) { answer(bytes.trimmed()); };
        recordsets.OpenRecordsets();
        link.watcher.SetUpAgain = [this] {
            return !(link.flags.HasForgotten = false);
        }; // this modem has nothing to be told again
        link.TimerCom->setEnabled(true);
    }

    /// Back to the two doors, for the next case of a table: a world of its own for each would mean
    /// to derive the database's key as often.
    void empty()
    {
        database.look().transaction([&] {
            for (const char *const table :
                 {"TBLbrukere", "Katalog", "SMS_Received", "SMS_Sent", "LOGGData"}) {
                database.look().run(u"DELETE FROM "_qs + QLatin1String(table));
            }
            addDoors();
        });
        recordsets.OpenRecordsets();
        store.clear();
        commands.clear();
        module.RefreshPending = false;
        module.SenderNumber = u"+4798765432"_qs;
    }
    void addDoors()
    {
        fillCorpusTable(database.look(), u"KEYTable"_qs, corpusColumns()[u"KEYTable"_qs],
                        {u"+4790000001|Hovedport|4"_qs, u"+4790000002||4"_qs});
    }
    /// The modem lists its store once, as asked or not, and what it brings is dealt with.
    void lists()
    {
        answer("AT+CMGL=ALL");
        clock.run(1500ms);
    }
    /// A message comes into the modem's store, as raw bytes of the line.
    void doorSays(const QByteArray &body, const QByteArray &door = kDoor)
    {
        store[7] = listed(door, body);
        lists();
    }

    /// The rows of a table, as a corpus tells them.
    std::vector<std::string> rows(const char *table)
    {
        return corpusTables(database.look())[table];
    }

    /// How many rows there are of messages and users, and what was deleted from the modem.
    std::string outcome()
    {
        return std::to_string(rows("SMS_Received").size()) + " filed, " +
               std::to_string(rows("TBLbrukere").size()) + " added, " +
               commands.join(' ').toStdString();
    }

    void answer(const QByteArray &command)
    {
        if (command == "AT+CMGL=ALL") {
            for (const auto &[index, record] : store) {
                port.feed("\r\n" + record);
            }
            port.feed(endsListing ? "\r\nOK\r\n" : "");
            return;
        }
        commands += command;
        store.erase(command.mid(8).toInt());
        port.feed("\r\nOK\r\n");
    }

    QByteArrayList commands; ///< without "AT+CMGL=ALL"
    std::map<int, QByteArray> store;
    bool endsListing = true; ///< "OK" stands behind a listing
    TestDatabase database;
};
