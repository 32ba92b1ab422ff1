#pragma once

#include "support/Bench.h"
#include "users/UserGrid.h"
#include "users/UserOperations.h"

#include <gtest/gtest.h>

inline const QString kDoor = QStringLiteral("+4790000001");
inline const QString kOtherDoor = QStringLiteral("+4790000002");
inline const QString kUser = QStringLiteral("+4791234567");
inline const QString kOtherUser = QStringLiteral("+4790009000");

/// The users' side without a screen: a database with two doors, standing on the first. It is
/// 1 December 2026.
struct UsersWorld : testing::Test, Bench {
    UsersWorld()
    {
        database.use(module);
        for (const auto &[number, name] :
             {std::pair(kDoor, u"Hovedport"_qs), {kOtherDoor, u"Garasje"_qs}}) {
            database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
                         {number, name, u"1"_qs});
        }
        module.GridFilter = module.texts.nye;
        standOn(kDoor);
    }

    /// A guest from 1 to 3 December 2026, as the number check leaves the fields.
    static UserEntry guest(const QString &number = kUser)
    {
        return {number,     u"Kari"_qs,         u"Ås"_qs,           u"NY"_qs, u"Gjest"_qs,
                u"9999"_qs, QDate(2026, 12, 1), QDate(2026, 12, 3), u"00"_qs, u"24"_qs,
                u"0"_qs};
    }
    void addUser(const QString &number, const QString &konto, const QString &status = u"Aktiv "_qs,
                 const QString &door = kDoor, const QString &saldo = u"0"_qs)
    {
        database.look().run(
            u"INSERT OR IGNORE INTO Katalog (Bruker, Etternavn, Fornavn, BrukerKort)"
            " VALUES (?, 'Berg', 'Ola', ?)"_qs,
            {number, number.mid(3)});
        database.add(
            u"TBLbrukere"_qs,
            u"KeyBruker,KeyNummer,Gyldig fra,FraTid,Gyldig til,TilTid,Konto,Saldo,Status"_qs,
            {number, door, u"5/12/2026"_qs, u"08"_qs, u"31/12/2026"_qs, u"16"_qs, konto, saldo,
             status});
        refresh();
    }
    void addWaiting(const QString &number, const QString &from, const QString &status = u"NY"_qs,
                    const QString &door = kDoor)
    {
        database.add(u"NYEbrukere"_qs,
                     u"Bruker,Etternavn,Fornavn,Gyldig fra,FraTid,Gyldig til,TilTid,Konto,Saldo,"
                     "Status,KeyNummer"_qs,
                     {number, u"Ås"_qs, u"Kari"_qs, from, u"06"_qs, u"24/12/2026"_qs, u"18"_qs,
                      u"Gjest"_qs, u"0"_qs, status, door});
        refresh();
    }
    /// Changes the file as another PC would, and opens everything anew.
    void run(const QString &sql)
    {
        database.look().run(sql);
        refresh();
    }
    /// Every such statement ("UPDATE ON Katalog") fails from now on.
    void forbid(const QString &statement)
    {
        run(u"CREATE TRIGGER held BEFORE %1 BEGIN SELECT RAISE(ABORT, 'held'); END"_qs.arg(
            statement));
    }
    /// Opens everything anew, as a tick or a save does.
    virtual void refresh()
    {
        recordsets.OpenRecordsets();
        grid.VisBrukerTabell();
    }
    void standOn(const QString &door)
    {
        module.KeySelect = door;
        refresh();
    }
    /// Rows of a statement separated by ";", their columns by "|".
    std::string rows(const QString &sql) { return database.rows(sql).join(u';').toStdString(); }
    /// What stands on the doors, waits and is queued, numbers by their last digits.
    std::string state()
    {
        return rows(u"SELECT substr(KeyNummer, -1), substr(KeyBruker, -4), [Gyldig fra], Status"
                    " FROM TBLbrukere ORDER BY Rad"_qs) +
               " // " +
               rows(u"SELECT substr(KeyNummer, -1), substr(Bruker, -4), [Gyldig fra], Status"
                    " FROM NYEbrukere ORDER BY ID"_qs) +
               " // " + queue();
    }
    std::string queue()
    {
        return rows(u"SELECT substr(TilNummer, -1), SMS_Text, Dato FROM SMS_Sent"
                    " WHERE CMGS = 'UNSENT' ORDER BY ID"_qs);
    }

    TestDatabase database;
    int gridRefills = 0;
    UserOperations users{module, recordsets, link, person, clock, host, [this] { ++gridRefills; }};
    UserGrid grid{module, recordsets};
};
