#pragma once

#include <QString>

#include <functional>

class Connection;
struct ScreenTexts;

/// Reads TBLLanguage in the order that it comes and hands on each text of the language that a
/// country code stands for (47 Norsk, 46 Svensk, 45 Dansk) with its position, 1 to 255; an empty
/// cell is passed over. The texts before a failure have been handed on when it is thrown.
/// @throws RuntimeFailure for another country code, and at the 256th row.
void readLanguage(Connection &connection, const QString &CountryCode,
                  const std::function<void(quint8 position, const QString &text)> &use);

/// Takes the text if its position is that of a word of the main screen.
void applyWord(ScreenTexts &texts, quint8 position, const QString &text);
