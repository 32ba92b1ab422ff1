#pragma once

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/MessageReader.h"
#include "modem/ModemLink.h"
#include "support/Doubles.h"
#include "support/FakeLines.h"
#include "support/TestDatabase.h"

#include <map>

/// The inbound side on a real database, with a modem on COM1 that holds messages in its store,
/// lists them and deletes them. Two doors stand in KEYTable: kDoor, "Hovedport", and kBackDoor,
/// which has no name.
class InboundWorld {
public:
    static constexpr const char *kDoor = "+4790000001";
    static constexpr const char *kBackDoor = "+4790000002";

    InboundWorld();

    /// All but the doors goes, for the next case of a table: a world of its own for each would
    /// mean to derive the database's key as often.
    void empty();
    void person(const QString &number, const QString &Etternavn, const QString &Fornavn);
    /// A row of TBLbrukere with the account "Gjest", balance 5 and the state "Registrerer".
    void user(const QString &number, const QString &door);

    /// Puts a message into the modem's store, as raw bytes of the line.
    void receives(int index, const QByteArray &sender, const QByteArray &body);
    /// Any other record, as it stands in a listing.
    void holds(int index, const QByteArray &record) { store[index] = record; }
    /// The modem lists its store once, as asked or not, and what it brings is dealt with.
    void lists();
    /// One message from the door, read and dealt with.
    void doorSays(const QByteArray &body, const QByteArray &door = kDoor);

    /// The rows of a query, columns joined by "|", for comparing and printing.
    std::vector<std::string> rows(const QString &sql);
    /// KeyBruker|KeyNummer|Status|Gyldig fra|FraTid|Gyldig til|TilTid|Konto|Saldo
    std::vector<std::string> users();
    /// Bruker|BrukerKort|Etternavn|Fornavn
    std::vector<std::string> persons();
    /// FraNummer|FraNummerKort|Etternavn|Fornavn|Dato|SMS_Text
    std::vector<std::string> filed();
    /// Commands that the modem was given, without "AT+CMGL=ALL".
    QByteArrayList commands;

    std::map<int, QByteArray> store;
    int refusedDeletes = 0;      ///< so many deletions are answered by "ERROR"
    bool endsListing = true;     ///< "OK" stands behind a listing
    std::function<void()> shown; ///< runs inside VisBrukerTabell

    VirtualClock clock;
    FakeHost host;
    ScriptedOperator operator_{clock};
    RecordingView view;
    TestDatabase database;
    FakeSerialPort port;
    FakeTcpSocket socket{clock};
    Module1 module;
    Recordsets recordsets{module, operator_};
    ModemLink link{clock, host, operator_, port, socket, view, module, recordsets};
    MessageReader reader{
        link, module, recordsets, view, clock, host, [this] { shown ? shown() : void(); }};

private:
    void answer(const QByteArray &command);
};
