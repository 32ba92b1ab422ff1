#pragma once

#include <QDate>
#include <QString>

/// A day as the user tables hold it, day/month/year, for the screen.
/// @throws RuntimeFailure when the text is no date.
QDate storedDay(const QString &text);
/// The same by the order of the system's dateFormat (Host.h).
/// @throws RuntimeFailure when the text is no date.
QDate regionalDay(const QString &text, const QString &dateFormat);
