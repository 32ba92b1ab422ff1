#pragma once

#include "users/UserEntry.h"

// What a door unit is told about its users. A capital command letter stands for a number of the
// program's own country, a small one for every other: the country code itself is never sent.

/// "I 91234567>26120100<26120324" with the period, from day and hour to day and hour; with a
/// balance other than 0, negative too, "I 91234567*25". Reads number, from, to, fraTid, tilTid
/// and saldo.
/// @throws RuntimeFailure when the balance is no number, or the period is needed and lacks a day.
QString registerCommand(const UserEntry &user, const QString &countryCode);
/// "U 91234567", with all of the number from its fourth character.
QString deleteCommand(const QString &number, const QString &countryCode);
/// "I 91234567": the register command without period or balance.
QString bareRegisterCommand(const QString &number, const QString &countryCode);
