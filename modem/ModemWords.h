#pragma once

#include <QString>

#include <optional>

// The shapes of a modem's lines: answers in text mode (3GPP TS 27.005), result codes (27.007), and
// what comes unasked. Each is known here alone.

/// The rest behind the name of an answer, as "5" behind "+CMGS" in "+CMGS: 5", wherever in the line
/// that stands. Some modems leave the blank out. Nothing when the line has no such answer.
std::optional<QString> answerIn(const QString &line, const QString &name);

/// Whether the line begins like the header of a record, whole or cut, in whatever mode.
bool beginsLikeHeader(const QString &line);
/// Whether the line is the whole header of a record in text mode. One that was cut on the way is
/// none: it has no sender, or ends within quotes.
bool isHeader(const QString &line);
/// Whether a record is listed in PDU mode, its status a number: the modem has forgotten AT+CMGF=1.
bool isPduHeader(const QString &line);

/// Whether the line is one that modems and networks say of their own accord: a code with a colon
/// ("+CREG: 1", "^RSSI:3"), a word of a call ("RING", "NO CARRIER"), or one of starting.
/// Headers and answers to what is sent are none.
bool isUnsolicited(const QString &line);
/// Whether the modem says that it starts: it has forgotten what it was told.
bool isBootWord(const QString &line);

/// "OK" alone in its line.
bool isFinalOk(const QString &line);
/// A command refused: "ERROR", "+CMS ERROR: 321", "+CME ERROR: 10".
bool isFinalError(const QString &line);
