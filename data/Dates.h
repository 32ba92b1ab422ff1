#pragma once

#include <QDate>
#include <QString>

#include <optional>

// The forms in which the tables hold days.

/// Day, month and four-digit year with "/" and no leading zeros, as 1/12/2026.
QString dayText(const QDate &day);
/// YYMMDD, as commands to a door carry it. The century is lost.
QString commandDate(const QDate &day);
/// Whole days since 30 December 1899, as DatoLNG counts them.
qint64 dayNumber(const QDate &day);
/// YYYY-MM-DD, as Dato in SMS_Sent is stored.
QString storedDate(const QDate &day);
/// Reads a day in the order of the system's dateFormat (Host.h), with any of "/", "." and "-"
/// between the parts; where that order makes no date, day/month/year and then month/day/year.
/// Door replies leave days with the words " & DATOSKILLETEGN & " between the parts; these always
/// have the day first. Nothing when it is no date.
std::optional<QDate> readDay(const QString &text, const QString &dateFormat);
/// The same by the order that the tables hold, day/month/year.
std::optional<QDate> readStoredDay(const QString &text);
/// A stored day in the system's dateFormat, for a screen; a text that is no date as it stands.
QString shownDay(const QString &text, const QString &dateFormat);
