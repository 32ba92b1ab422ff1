#pragma once

#include <QByteArray>
#include <QString>

// Text as the program's rules speak of it: positions count from 1, a search that finds nothing
// gives 0, and a cut that makes no sense fails. Comparisons are without case, Æ Ø Å Ä Ö included.

/// Position of needle at or behind start, case ignored; 0 when there is none. An empty needle is
/// found at start.
/// @throws RuntimeFailure when start is below 1.
int inStr(int start, const QString &text, const QString &needle);
inline int inStr(const QString &text, const QString &needle)
{
    return inStr(1, text, needle);
}
inline bool holds(const QString &text, const QString &needle)
{
    return inStr(text, needle) > 0;
}

/// At most length characters from start on; short or empty when the text ends before.
/// @throws RuntimeFailure when start is below 1 or length below 0.
QString mid(const QString &text, int start, int length);
/// Everything from start on.
/// @throws RuntimeFailure when start is below 1.
QString mid(const QString &text, int start);
/// @throws RuntimeFailure when length is below 0.
QString left(const QString &text, int length);

/// Equal without regard to case.
bool same(const QString &a, const QString &b);

/// A decimal number, blanks around it allowed, sign allowed.
/// @throws RuntimeFailure when the text is no number.
double toNumber(const QString &text);
/// A whole number from 0 to 255.
/// @throws RuntimeFailure when the text is no number or out of that range.
quint8 toByte(const QString &text);
/// @throws RuntimeFailure when the value does not fit into 0 to 255.
quint8 byteOf(int value);

// The program's own character set is Windows-1252.

/// The code of a character there, 0 to 255; -1 for a character outside it.
int windows1252Code(QChar character);
/// The character of a code from 0 to 255. The five codes without a character give themselves.
QChar windows1252Character(int code);
/// What a single-byte screen would hold: each character outside the set becomes "?".
QString toWindows1252(const QString &text);

/// A line's bytes as characters 0 to 255, one to one, and back. On the way back a character
/// above 255 becomes "?".
QString fromLineBytes(const QByteArray &bytes);
QByteArray toLineBytes(const QString &text);
