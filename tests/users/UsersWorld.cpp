#include "users/UsersWorld.h"

UsersWorld::UsersWorld()
{
    database.use(module);
    for (const auto &[number, name] :
         {std::pair(kDoor, u"Hovedport"_qs), {kOtherDoor, u"Garasje"_qs}}) {
        database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs, {number, name, u"1"_qs});
    }
    module.GridFilter = module.texts.nye;
    standOn(kDoor);
}

UserEntry UsersWorld::guest(const QString &number)
{
    return {number,     u"Kari"_qs,         u"Ås"_qs,           u"NY"_qs, u"Gjest"_qs,
            u"9999"_qs, QDate(2026, 12, 1), QDate(2026, 12, 3), u"00"_qs, u"24"_qs,
            u"0"_qs};
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

void UsersWorld::run(const QString &sql)
{
    database.look().run(sql);
    refresh();
}

void UsersWorld::forbid(const QString &statement)
{
    run(u"CREATE TRIGGER held BEFORE %1 BEGIN SELECT RAISE(ABORT, 'held'); END"_qs.arg(statement));
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

std::string UsersWorld::rows(const QString &sql)
{
    return database.rows(sql).join(u';').toStdString();
}

std::string UsersWorld::state()
{
    return rows(u"SELECT substr(KeyNummer, -1), substr(KeyBruker, -4), [Gyldig fra], Status"
                " FROM TBLbrukere ORDER BY Rad"_qs) +
           " // " +
           rows(u"SELECT substr(KeyNummer, -1), substr(Bruker, -4), [Gyldig fra], Status"
                " FROM NYEbrukere ORDER BY ID"_qs) +
           " // " + queue();
}

std::string UsersWorld::queue()
{
    return rows(u"SELECT substr(TilNummer, -1), SMS_Text, Dato FROM SMS_Sent"
                " WHERE CMGS = 'UNSENT' ORDER BY ID"_qs);
}
