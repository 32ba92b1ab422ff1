#pragma once

#include <QString>

// The forms of a telephone number. A full number is "+", a country code of two digits and the
// subscriber's number; the first three characters are dropped without looking at them, and in the
// same way for any other text.

// How many characters a number may have without a question, the "+" counted.
inline constexpr int kShortestNumber = 11;
inline constexpr int kLongestNumber = 12;

/// Whether "+" and the country code stand anywhere in the number.
bool isHomeNumber(const QString &number, const QString &countryCode);
/// At most nine characters from the fourth: what registers a user on a door, and BrukerKort.
QString shortNumber(const QString &number);
/// Everything from the fourth character: what deletes a user, and a door's short form. For a
/// number of 13 characters or more it differs from shortNumber() on purpose.
QString numberToEnd(const QString &number);
