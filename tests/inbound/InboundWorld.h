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
        fillCorpusTable(database.look(), u"KEYTable"_qs,
                        {u"+4790000001|Hovedport|4"_qs, u"+4790000002||4"_qs});
    }
    /// Puts a message into the modem's store, as raw bytes of the line.
    void receives(int index, const QByteArray &sender, const QByteArray &body)
    {
        store[index] = "+CMGL: " + QByteArray::number(index) + ",\"REC UNREAD\",\"" + sender +
                       "\",,\"26/12/01,12:34:56+04\"\r\n" + body + "\r\n";
    }
    /// The modem lists its store once, as asked or not, and what it brings is dealt with.
    void lists()
    {
        answer("AT+CMGL=ALL");
        clock.run(1500ms);
    }
    void doorSays(const QByteArray &body, const QByteArray &door = kDoor)
    {
        receives(7, door, body);
        lists();
    }

    /// The rows of a query, columns joined by "|", for comparing and printing.
    std::vector<std::string> rows(const QString &sql)
    {
        std::vector<std::string> result;
        for (const QString &row : database.rows(sql)) {
            result.push_back(row.toStdString());
        }
        return result;
    }
    std::vector<std::string> users()
    {
        return rows(u"SELECT KeyBruker, KeyNummer, Status, [Gyldig fra], FraTid, [Gyldig til], "
                    "TilTid, Konto, Saldo FROM TBLbrukere ORDER BY rowid"_qs);
    }
    std::vector<std::string> persons()
    {
        return rows(u"SELECT Bruker, BrukerKort, Etternavn, Fornavn FROM Katalog "
                    "ORDER BY rowid"_qs);
    }
    std::vector<std::string> filed()
    {
        return rows(u"SELECT FraNummer, FraNummerKort, Etternavn, Fornavn, Dato, SMS_Text "
                    "FROM SMS_Received ORDER BY rowid"_qs);
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
