#include "data/Recordsets.h"

#include "data/Compaction.h"
#include "data/Connection.h"
#include "data/Criteria.h"
#include "data/DatabasePaths.h"
#include "data/Module1.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

QStringList named(const char *names)
{
    return QString::fromUtf8(names).split(u',');
}

const char *const kUserColumns =
    "KeyBruker,Gyldig fra,FraTid,Gyldig til,TilTid,Konto,Saldo,Status,KeyNummer";
const char *const kSentColumns = "ID,TilNummer,TilNummerKort,Etternavn,Fornavn,Dato,DatoLNG,"
                                 "SMS_Text,CMGS,TimeSent,TimeReceived,ReceivedStatus";

Query allDoors()
{
    return {.source = QStringLiteral("KEYTable"),
            .columns = named("KeyNummer,KeyNavn,KeySikkerhet,Bygning,Admin,Admin1,Admin2,Admin3,"
                             "Admin4,Admin5,Eget_Nummer,Beskrivelse,Alarmstatus,KeyStatus,"
                             "Pulslengde")};
}

Query users()
{
    return {.source = QStringLiteral("TBLbrukere"), .columns = named(kUserColumns)};
}

Query usersOf(const QString &door)
{
    Query query = users();
    query.filter = equals(QStringLiteral("KeyNummer"));
    query.values = {filterValue(door)};
    return query;
}

Query newUsers()
{
    return {.source = QStringLiteral("NYEbrukere"),
            .columns = named("Bruker,Etternavn,Fornavn,Gyldig fra,FraTid,Gyldig til,TilTid,Konto,"
                             "Saldo,Status,KeyNummer,ID"),
            .sort = QStringLiteral("Gyldig fra")};
}

Query sentDone()
{
    return {.source = QStringLiteral("SMS_Sent"),
            .columns = named(kSentColumns),
            .filter = differs(QStringLiteral("CMGS")),
            .values = {QStringLiteral("UNSENT")}};
}

Query outbox()
{
    const QString state = equals(QStringLiteral("CMGS"));
    return {.source = QStringLiteral("SMS_Sent"),
            .columns = named(kSentColumns),
            .filter = state + QStringLiteral(" OR ") + state,
            .values = {QStringLiteral("UNSENT"), QStringLiteral("SLETTET")}};
}

/// Each user once, by the first of the user's rows. Grouping would read the whole table before
/// the first row is there; so each row looks its own count up, when it is asked for.
Query doorsPerUser()
{
    return {.source = QStringLiteral(
                "(SELECT u.Rad AS Rad, u.KeyBruker AS KeyBruker,"
                " (SELECT count(c.KeyNummer) FROM TBLbrukere AS c"
                "  WHERE upper(rtrim(c.KeyBruker)) = upper(rtrim(u.KeyBruker))) AS KEY_Antall"
                " FROM TBLbrukere AS u WHERE NOT EXISTS (SELECT 1 FROM TBLbrukere AS e"
                "  WHERE upper(rtrim(e.KeyBruker)) = upper(rtrim(u.KeyBruker))"
                "  AND e.Rad < u.Rad))"),
            .columns = named("KeyBruker,KEY_Antall"),
            .key = QStringLiteral("Rad")};
}

} // namespace

Query allowedDoors(const QString &SecurityLevel, const QStringList &columns)
{
    return {.source = QStringLiteral("KEYTable"),
            .columns = columns,
            .filter = QStringLiteral("KeySikkerhet <= ?"),
            .values = {filterValue(SecurityLevel) + u' '}};
}

Recordsets::Recordsets(Module1 &module, Operator &person) : module_(module), operator_(person) {}

void Recordsets::OpenDatabase()
{
    const bool done = shown(operator_, {}, [this] {
        closeAll();
        if (CompactRequested) {
            compactDatabase(module_.DatabasePath, module_.TempDatabasePath,
                            module_.BackupDatabasePath);
        }
        module_.ConnectionString = connectionString(module_.DatabasePath);
        module_.DatabaseConnection = Connection::open(module_.ConnectionString);
    });
    CompactFailed = !done;
}

void Recordsets::closeAll()
{
    for (Recordset *set :
         {&rsKeyAll, &rsKeyAllowed, &rsBrukereAll, &rsNyeBrukere, &rsBrukereKey, &rsKatalog,
          &rsSmsReceived, &rsSmsSentDone, &rsSmsOutbox, &rsKeyAntall, &rsLoggData, &rsModem,
          &rsVisNyeBrukere, &rsVisBrukere, &rsListBrukere}) {
        set->close();
    }
    doorNumber_.clear();
    doorName_.clear();
    if (module_.DatabaseConnection) {
        // Whoever still holds it would keep the file in use.
        module_.DatabaseConnection->close();
        module_.DatabaseConnection.reset();
    }
}

bool Recordsets::areOpen() const
{
    const auto opened = {&rsKeyAll,    &rsBrukereAll,  &rsNyeBrukere,  &rsBrukereKey,
                         &rsKatalog,   &rsSmsReceived, &rsSmsSentDone, &rsSmsOutbox,
                         &rsKeyAntall, &rsLoggData,    &rsModem};
    return std::ranges::all_of(opened, &Recordset::isOpen);
}

void Recordsets::atOnce(const std::function<void()> &work)
{
    opened().transaction(work);
}

Connection &Recordsets::opened() const
{
    if (!module_.DatabaseConnection) {
        throw RuntimeFailure(QCoreApplication::translate("Recordset", "Ingen database er åpen"));
    }
    return *module_.DatabaseConnection;
}

void Recordsets::OpenRecordsets()
{
    shown(operator_, {}, [this] { reopen(); });
}

void Recordsets::reopen()
{
    opened().readTogether([this] {
        openDoors();
        openUsersAndMessages();
    });
    if (display) {
        display();
    }
}

void Recordsets::openDoors()
{
    rsKeyAll.open(module_.DatabaseConnection, allDoors());
    rsKeyAllowed.open(module_.DatabaseConnection,
                      allowedDoors(module_.SecurityLevel, named("KeyNummer,KeyNavn,KeySikkerhet")));
    doorNumber_.clear();
    doorName_.clear();
    if (rsKeyAllowed.findFirstAsItStands(QStringLiteral("KeyNummer"), module_.KeySelect) ||
        rsKeyAllowed.isEmpty()) {
        return;
    }
    // A door above the level, or none: the screen takes the first row, the set stays at its end.
    rsKeyAllowed.moveFirst();
    doorNumber_ = rsKeyAllowed.text(QStringLiteral("KeyNummer"));
    doorName_ = rsKeyAllowed.text(QStringLiteral("KeyNavn"));
    rsKeyAllowed.moveLast();
    rsKeyAllowed.moveNext();
}

void Recordsets::openUsersAndMessages()
{
    const auto &connection = module_.DatabaseConnection;
    rsBrukereAll.open(connection, users());
    rsNyeBrukere.open(connection, newUsers());
    rsBrukereKey.open(connection, usersOf(doorNumber()));
    rsKatalog.open(connection, {.source = QStringLiteral("Katalog"),
                                .columns = named("Bruker,Etternavn,Fornavn,BrukerKort")});
    rsSmsReceived.open(connection, {.source = QStringLiteral("SMS_Received"),
                                    .columns = named("ID,FraNummer,FraNummerKort,Etternavn,"
                                                     "Fornavn,Dato,SMS_Text"),
                                    .sort = QStringLiteral("ID")});
    rsSmsSentDone.open(connection, sentDone());
    rsSmsOutbox.open(connection, outbox());
    rsKeyAntall.open(connection, doorsPerUser());
    rsLoggData.open(connection, {.source = QStringLiteral("LOGGData"),
                                 .columns = named("KeyNummer,KeyUser,Fornavn,Etternavn,Dato")});
    rsModem.open(connection, {.source = QStringLiteral("Modem"),
                              .columns = named("IMEICODE,ModemManufacturer,ModemName,ModemOwner,"
                                               "ModemStatus")});
    rsSmsReceived.moveLast();
}

QString Recordsets::doorNumber() const
{
    const bool onRow = rsKeyAllowed.isOpen() && rsKeyAllowed.row();
    return onRow ? rsKeyAllowed.text(QStringLiteral("KeyNummer")) : doorNumber_;
}

QString Recordsets::doorName() const
{
    const bool onRow = rsKeyAllowed.isOpen() && rsKeyAllowed.row();
    return onRow ? rsKeyAllowed.text(QStringLiteral("KeyNavn")) : doorName_;
}

QString modemPanelText(const Module1 &module, const Recordset &rsModem, const QString &portWord,
                       const QString &hostName)
{
    constexpr quint8 kNoLine = 0;
    QString place = portWord;
    if (module.ModemReady && module.ActiveComPort == kNetworkModem) {
        place = hostName;
    } else if (module.ModemReady && module.ActiveComPort != kNoLine) {
        place = QStringLiteral("COM%1").arg(module.ActiveComPort);
    }
    const auto text = [&](const QString &column) {
        return rsModem.row() ? rsModem.text(column) : QString();
    };
    return text(QStringLiteral("ModemManufacturer")) + u' ' + text(QStringLiteral("ModemName")) +
           QStringLiteral(" på ") + place;
}
