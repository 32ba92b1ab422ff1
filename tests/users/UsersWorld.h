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
    UsersWorld();

    /// A guest from 1 to 3 December 2026, as the number check leaves the fields.
    static UserEntry guest(const QString &number = kUser);
    void addUser(const QString &number, const QString &konto,
                 const QString &status = QStringLiteral("Aktiv "), const QString &door = kDoor,
                 const QString &saldo = QStringLiteral("0"));
    void addWaiting(const QString &number, const QString &from,
                    const QString &status = QStringLiteral("NY"), const QString &door = kDoor);
    /// Changes the file as another PC would, and opens everything anew.
    void run(const QString &sql);
    /// Every such statement ("UPDATE ON Katalog") fails from now on.
    void forbid(const QString &statement);
    /// Opens everything anew, as a tick or a save does.
    virtual void refresh();
    void standOn(const QString &door);
    /// Rows of a statement separated by ";", their columns by "|".
    std::string rows(const QString &sql);
    /// What stands on the doors, waits and is queued, numbers by their last digits.
    std::string state();
    std::string queue();

    TestDatabase database;
    int gridRefills = 0;
    UserOperations users{module, recordsets, link, person, clock, host, [this] { ++gridRefills; }};
    UserGrid grid{module, recordsets};
};
