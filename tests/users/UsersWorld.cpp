#include "users/UsersWorld.h"

#include "data/Connection.h"

UsersWorld::UsersWorld()
{
    database.use(module);
    for (const auto &[number, name] : {std::pair(kDoor, u"Hovedport"), {kOtherDoor, u"Garasje"}}) {
        database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
                     {number, QString::fromUtf16(name), u"1"_qs});
    }
    module.GridFilter = module.texts.nye;
    standOn(kDoor);
}

UserEntry UsersWorld::guest(const QString &number) const
{
    UserEntry entry;
    entry.number = number;
    entry.fornavn = u"Kari"_qs;
    entry.etternavn = u"Ås"_qs;
    entry.status = u"NY"_qs;
    entry.konto = u"Gjest"_qs;
    entry.id = u"9999"_qs;
    entry.from = QDate(2026, 12, 1);
    entry.to = QDate(2026, 12, 3);
    entry.fraTid = u"00"_qs;
    entry.tilTid = u"24"_qs;
    entry.saldo = u"0"_qs;
    return entry;
}

void UsersWorld::addUser(const QString &number, const QString &konto, const QString &status,
                         const QString &door, const QString &saldo)
{
    if (database.single(u"SELECT count(*) FROM Katalog WHERE Bruker = ?"_qs, {number}) == u"0") {
        database.add(u"Katalog"_qs, u"Bruker,Etternavn,Fornavn,BrukerKort"_qs,
                     {number, u"Berg"_qs, u"Ola"_qs, number.mid(3)});
    }
    database.add(u"TBLbrukere"_qs,
                 u"KeyBruker,KeyNummer,Gyldig fra,FraTid,Gyldig til,TilTid,Konto,Saldo,Status"_qs,
                 {number, door, u"5/12/2026"_qs, u"08"_qs, u"31/12/2026"_qs, u"16"_qs, konto, saldo,
                  status});
    refresh();
}

void UsersWorld::addWaiting(const QString &number, const QString &from, const QString &status,
                            const QString &door)
{
    database.add(u"NYEbrukere"_qs,
                 u"Bruker,Etternavn,Fornavn,Gyldig fra,FraTid,Gyldig til,TilTid,Konto,Saldo,"
                 "Status,KeyNummer"_qs,
                 {number, u"Ås"_qs, u"Kari"_qs, from, u"06"_qs, u"24/12/2026"_qs, u"18"_qs,
                  u"Gjest"_qs, u"0"_qs, status, door});
    refresh();
}

void UsersWorld::refresh()
{
    recordsets.OpenRecordsets();
    grid.VisBrukerTabell();
}

void UsersWorld::standOn(const QString &door)
{
    module.KeySelect = door;
    refresh();
}

QStringList UsersWorld::rows(const QString &sql)
{
    QStringList found;
    database.look().run(sql, {}, [&](const QVariantList &row) {
        QStringList values;
        for (const QVariant &value : row) {
            values.append(value.toString());
        }
        found.append(values.join(u'|'));
    });
    return found;
}

QStringList UsersWorld::queue()
{
    return rows(u"SELECT TilNummer, SMS_Text, Etternavn, Dato, CMGS FROM SMS_Sent ORDER BY ID"_qs);
}

QStringList UsersWorld::waiting()
{
    return rows(u"SELECT KeyNummer, Bruker, [Gyldig fra], Status FROM NYEbrukere ORDER BY ID"_qs);
}

QStringList UsersWorld::onDoors()
{
    return rows(
        u"SELECT KeyNummer, KeyBruker, [Gyldig fra], Status FROM TBLbrukere ORDER BY Rad"_qs);
}
