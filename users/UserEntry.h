#pragma once

#include <QDate>
#include <QString>

/// Stands in UserEntry::id when no waiting period is on screen.
inline constexpr int kNoWaitingRow = 9999;
/// Gyldig til of a user with a balance, and of every period without an end.
inline const QString kNoEnd = QStringLiteral("31/12/2099");
/// The guest period that a new user starts with ends so many days behind its first day.
inline constexpr int kGuestDays = 2;

/// One user as the entry fields of the main screen show it. Texts are as typed, but hold
/// characters of Windows-1252 alone; nothing says that a number is made of digits.
struct UserEntry {
    QString number;    ///< Txtfields 0: the full number
    QString fornavn;   ///< Txtfields 1
    QString etternavn; ///< Txtfields 2
    QString status;    ///< Txtfields 3
    QString konto;     ///< Txtfields 4
    QString id;        ///< Txtfields 5: ID of the waiting period on screen, or "9999"
    QDate from;        ///< DTPickerFrom
    QDate to;          ///< DTPickerTo
    QString fraTid;    ///< as a rule "00" to "24", but any text is taken
    QString tilTid;
    QString saldo; ///< admissions left; "0" for a user with a period
    // What the row on screen holds where it is no date; then from and to are not the row's.
    QString unreadFrom = {};
    QString unreadTo = {};

    bool operator==(const UserEntry &) const = default;
};
