#pragma once

#include <QByteArray>
#include <QString>

/// The GSM 7-bit default alphabet and its extension table, one code in a byte
/// (3GPP TS 23.038, 6.2.1 and 6.2.1.1).

/// Characters outside the alphabet become "?".
QByteArray toGsm(const QString &text);
/// Codes from 128 up and escapes to nothing become "?".
QString fromGsm(const QByteArray &codes);
