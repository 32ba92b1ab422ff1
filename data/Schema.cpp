#include "data/Schema.h"

#include "data/Connection.h"
#include "data/Criteria.h"

namespace {

// Each row has a number that is never used again and survives a compaction: ID where the table
// has one, else Rad.
constexpr const char16_t *kTables[] = {
    uR"(CREATE TABLE KEYTable (
        Rad INTEGER PRIMARY KEY AUTOINCREMENT,
        KeyNummer TEXT,
        KeyNavn TEXT COLLATE NOCASE,
        KeySikkerhet TEXT COLLATE NOCASE,
        Bygning TEXT COLLATE NOCASE,
        Admin TEXT COLLATE NOCASE DEFAULT '0',
        Admin1 TEXT COLLATE NOCASE,
        Admin2 TEXT COLLATE NOCASE,
        Admin3 TEXT COLLATE NOCASE,
        Admin4 TEXT COLLATE NOCASE,
        Admin5 TEXT COLLATE NOCASE,
        Eget_Nummer TEXT COLLATE NOCASE DEFAULT '99999999',
        Beskrivelse TEXT COLLATE NOCASE,
        Alarmstatus TEXT COLLATE NOCASE,
        KeyStatus TEXT COLLATE NOCASE,
        Pulslengde TEXT COLLATE NOCASE,
        TimeInStart TEXT COLLATE NOCASE,
        TimeInStop TEXT COLLATE NOCASE,
        TimeOutStart TEXT COLLATE NOCASE,
        TimeOutStop TEXT COLLATE NOCASE,
        Tekst1 TEXT COLLATE NOCASE,
        Tekst2 TEXT COLLATE NOCASE,
        Tekst3 TEXT COLLATE NOCASE,
        Tekst4 TEXT COLLATE NOCASE,
        Tekst5 TEXT COLLATE NOCASE,
        Tekst6 TEXT COLLATE NOCASE))",    uR"(CREATE TABLE TBLbrukere (
        Rad INTEGER PRIMARY KEY AUTOINCREMENT,
        KeyBruker TEXT,
        KeyNummer TEXT,
        [Gyldig fra] TEXT COLLATE NOCASE,
        FraTid TEXT COLLATE NOCASE,
        [Gyldig til] TEXT COLLATE NOCASE,
        TilTid TEXT COLLATE NOCASE,
        Konto TEXT COLLATE NOCASE,
        Saldo TEXT COLLATE NOCASE,
        Status TEXT COLLATE NOCASE))",
    uR"(CREATE TABLE NYEbrukere (
        ID INTEGER PRIMARY KEY AUTOINCREMENT,
        Bruker TEXT,
        Etternavn TEXT COLLATE NOCASE,
        Fornavn TEXT COLLATE NOCASE,
        [Gyldig fra] TEXT COLLATE NOCASE,
        FraTid TEXT COLLATE NOCASE,
        [Gyldig til] TEXT COLLATE NOCASE,
        TilTid TEXT COLLATE NOCASE,
        Konto TEXT COLLATE NOCASE,
        Saldo TEXT COLLATE NOCASE,
        Status TEXT COLLATE NOCASE,
        KeyNummer TEXT))",  uR"(CREATE TABLE Katalog (
        Rad INTEGER PRIMARY KEY AUTOINCREMENT,
        Bruker TEXT,
        Etternavn TEXT COLLATE NOCASE,
        Fornavn TEXT COLLATE NOCASE,
        Gate TEXT COLLATE NOCASE,
        Postnummer TEXT COLLATE NOCASE,
        Poststed TEXT COLLATE NOCASE,
        Tillatelser TEXT COLLATE NOCASE,
        BrukerKort TEXT))",
    uR"(CREATE TABLE SMS_Sent (
        ID INTEGER PRIMARY KEY AUTOINCREMENT,
        TilNummer TEXT,
        TilNummerKort TEXT,
        Etternavn TEXT COLLATE NOCASE,
        Fornavn TEXT COLLATE NOCASE,
        Dato TEXT,
        DatoLNG INTEGER,
        SMS_Text TEXT COLLATE NOCASE,
        CMGS TEXT,
        TimeSent TEXT COLLATE NOCASE,
        TimeReceived TEXT COLLATE NOCASE,
        ReceivedStatus TEXT COLLATE NOCASE))",    uR"(CREATE TABLE SMS_Received (
        ID INTEGER PRIMARY KEY AUTOINCREMENT,
        FraNummer TEXT,
        FraNummerKort TEXT,
        Etternavn TEXT COLLATE NOCASE,
        Fornavn TEXT COLLATE NOCASE,
        Dato TEXT,
        SMS_Text TEXT COLLATE NOCASE))",
    uR"(CREATE TABLE LOGGData (
        Rad INTEGER PRIMARY KEY AUTOINCREMENT,
        KeyNummer TEXT,
        KeyUser TEXT,
        Fornavn TEXT COLLATE NOCASE,
        Etternavn TEXT COLLATE NOCASE,
        Dato TEXT))",    uR"(CREATE TABLE Passwords (
        Rad INTEGER PRIMARY KEY AUTOINCREMENT,
        USER_ID TEXT COLLATE NOCASE,
        Password TEXT COLLATE NOCASE,
        SecurityLevel TEXT COLLATE NOCASE))",
    uR"(CREATE TABLE TBLLanguage (
        ID INTEGER PRIMARY KEY AUTOINCREMENT,
        Norsk TEXT COLLATE NOCASE,
        Dansk TEXT COLLATE NOCASE,
        Svensk TEXT COLLATE NOCASE))", uR"(CREATE TABLE Modem (
        Rad INTEGER PRIMARY KEY AUTOINCREMENT,
        IMEICODE TEXT COLLATE NOCASE,
        ModemManufacturer TEXT COLLATE NOCASE,
        ModemName TEXT COLLATE NOCASE,
        ModemOwner TEXT COLLATE NOCASE,
        ModemStatus INTEGER))",
};

// The saved queries. Rad is the number of the row behind each of their rows.
constexpr const char16_t *kViews[] = {
    uR"(CREATE VIEW brukere AS
        SELECT b.Rad AS Rad, k.Bruker AS Bruker, k.Etternavn AS Etternavn, k.Fornavn AS Fornavn,
            b.[Gyldig fra] AS [Gyldig fra], b.FraTid AS FraTid, b.[Gyldig til] AS [Gyldig til],
            b.TilTid AS TilTid, b.Konto AS Konto, b.Status AS Status, b.Saldo AS Saldo,
            b.KeyNummer AS KeyNummer
        FROM TBLbrukere AS b
        JOIN Katalog AS k ON upper(rtrim(k.[Bruker])) = upper(rtrim(b.[KeyBruker])))",
    uR"(CREATE VIEW brukertillatelser AS
        SELECT min(Rad) AS Rad, min(KeyBruker) AS Bruker, count(KeyNummer) AS antallavkeynummer
        FROM TBLbrukere GROUP BY upper(rtrim([KeyBruker])))",
};

// A door's users go with the door.
constexpr const char16_t *kTrigger =
    uR"(CREATE TRIGGER KEYTable_slettet AFTER DELETE ON KEYTable BEGIN
        DELETE FROM TBLbrukere
        WHERE upper(rtrim([KeyNummer])) = upper(rtrim(old.[KeyNummer]));
    END)";

struct Index {
    const char16_t *table;
    const char16_t *column;
    bool unique = false;
    const char16_t *second = nullptr; ///< a further column, where the first has many rows alike
};

constexpr Index kIndexes[] = {
    {u"KEYTable", u"KeyNummer", true},
    {u"TBLbrukere", u"KeyNummer"},
    {u"TBLbrukere", u"KeyBruker"},
    {u"NYEbrukere", u"KeyNummer"},
    {u"NYEbrukere", u"Bruker"},
    {u"Katalog", u"Bruker", true},
    {u"Katalog", u"BrukerKort"},
    {u"SMS_Sent", u"CMGS"},
    // One door's log in the order of its rows, for sorting it, and by date, as it is shown.
    {u"LOGGData", u"KeyNummer"},
    {u"LOGGData", u"KeyNummer", false, u"Dato"},
    {u"LOGGData", u"Dato", false, u"KeyUser"},
};

void createIndex(Connection &connection, const Index &index)
{
    const auto table = QString::fromUtf16(index.table);
    const auto column = QString::fromUtf16(index.column);
    QString name = table + u'_' + column;
    QString indexed = comparedForm(column);
    if (index.second != nullptr) {
        const auto second = QString::fromUtf16(index.second);
        name += u'_' + second;
        indexed += QStringLiteral(", ") + comparedForm(second);
    }
    connection.run(
        QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
            .arg(index.unique ? QStringLiteral("UNIQUE ") : QString(), name, table, indexed));
}

} // namespace

void createSchema(Connection &connection)
{
    connection.transaction([&] {
        for (const auto *const table : kTables) {
            connection.run(QString::fromUtf16(table));
        }
        for (const Index &index : kIndexes) {
            createIndex(connection, index);
        }
        for (const auto *const view : kViews) {
            connection.run(QString::fromUtf16(view));
        }
        connection.run(QString::fromUtf16(kTrigger));
        connection.run(QStringLiteral("PRAGMA user_version = %1").arg(kSchemaNumber));
    });
}
