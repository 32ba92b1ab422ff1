#include "inbound/InboundWorld.h"

#include "data/Connection.h"

InboundWorld::InboundWorld()
{
    database.use(module);
    database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
                 {QString::fromLatin1(kDoor), u"Hovedport"_qs, u"4"_qs});
    database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
                 {QString::fromLatin1(kBackDoor), u""_qs, u"4"_qs});
    module.ActiveComPort = 1;
    module.ModemReady = true;
    port.open(u"COM1"_qs);
    port.onWrite = [this](const QByteArray &bytes) { answer(bytes.trimmed()); };
    recordsets.OpenRecordsets();
    link.tables.BuildCharacterTables();
    link.watcher.StartNyBruker = [] {};
    link.watcher.Read_SMS_MessageTEXT = [this] { reader.Read_SMS_MessageTEXT(); };
    link.TimerCom->setEnabled(true);
}

void InboundWorld::empty()
{
    for (const char *const table : {"TBLbrukere", "Katalog", "SMS_Received"}) {
        database.look().run(u"DELETE FROM "_qs + QLatin1String(table));
    }
    recordsets.OpenRecordsets();
    store.clear();
    commands.clear();
    module.RefreshPending = false;
    module.SenderNumber = u"+4798765432"_qs;
}

void InboundWorld::person(const QString &number, const QString &Etternavn, const QString &Fornavn)
{
    database.add(u"Katalog"_qs, u"Bruker,BrukerKort,Etternavn,Fornavn"_qs,
                 {number, number.mid(3), Etternavn, Fornavn});
    recordsets.OpenRecordsets();
}

void InboundWorld::user(const QString &number, const QString &door)
{
    database.add(u"TBLbrukere"_qs,
                 u"KeyBruker,KeyNummer,Gyldig fra,FraTid,Gyldig til,TilTid,Konto,Saldo,Status"_qs,
                 {number, door, u"1/1/2026"_qs, u"06"_qs, u"2/1/2026"_qs, u"18"_qs, u"Gjest"_qs,
                  u"5"_qs, u"Registrerer"_qs});
    recordsets.OpenRecordsets();
}

void InboundWorld::receives(int index, const QByteArray &sender, const QByteArray &body)
{
    holds(index, "+CMGL: " + QByteArray::number(index) + ",\"REC UNREAD\",\"" + sender +
                     "\",,\"26/12/01,12:34:56+04\"\r\n" + body + "\r\n");
}

void InboundWorld::answer(const QByteArray &command)
{
    if (command == "AT+CMGL=ALL") {
        for (const auto &[index, record] : store) {
            port.feed("\r\n" + record);
        }
        port.feed(endsListing ? "\r\nOK\r\n" : "");
        return;
    }
    commands += command;
    if (refusedDeletes > 0) {
        --refusedDeletes;
        port.feed("\r\nERROR\r\n");
    } else {
        store.erase(command.mid(8).toInt());
        port.feed("\r\nOK\r\n");
    }
}

void InboundWorld::lists()
{
    answer("AT+CMGL=ALL");
    clock.run(1500ms);
}

void InboundWorld::doorSays(const QByteArray &body, const QByteArray &door)
{
    receives(7, door, body);
    lists();
}

std::vector<std::string> InboundWorld::rows(const QString &sql)
{
    std::vector<std::string> result;
    database.look().run(sql, {}, [&](const QVariantList &row) {
        QStringList texts;
        for (const QVariant &value : row) {
            texts += value.toString();
        }
        result.push_back(texts.join(u'|').toStdString());
    });
    return result;
}

std::vector<std::string> InboundWorld::users()
{
    return rows(u"SELECT KeyBruker, KeyNummer, Status, [Gyldig fra], FraTid, [Gyldig til], TilTid, "
                "Konto, Saldo FROM TBLbrukere ORDER BY rowid"_qs);
}

std::vector<std::string> InboundWorld::persons()
{
    return rows(u"SELECT Bruker, BrukerKort, Etternavn, Fornavn FROM Katalog ORDER BY rowid"_qs);
}

std::vector<std::string> InboundWorld::filed()
{
    return rows(u"SELECT FraNummer, FraNummerKort, Etternavn, Fornavn, Dato, SMS_Text "
                "FROM SMS_Received ORDER BY rowid"_qs);
}
