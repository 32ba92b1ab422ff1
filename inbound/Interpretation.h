#pragma once

#include "inbound/ErrorRule.h"

#include <QDate>
#include <QString>
#include <QVariant>

#include <initializer_list>
#include <span>
#include <utility>

class CharacterTables;
class ModemResponse;
class Recordset;
class Recordsets;
struct Module1;

/// One record under interpretation: what all families work on.
///
/// The working text stays in the modem's own alphabet (3GPP TS 23.038), so that å of a phone is
/// code 15 in it, ä is code 123 and ö code 124. The door is always Module1::SenderNumber; the
/// sender is never checked.
class Interpretation {
public:
    Interpretation(Module1 &module, Recordsets &recordsets, ModemResponse &response,
                   const CharacterTables &tables, ErrorRule &rule, const QDate &today,
                   const QString &dateFormat);

    /// The working text lives in ModemResponse, and each change of it is an event to the watcher:
    /// a remainder with "OK", "ERROR" or "+CMTI" acts as the modem's own line would.
    QString text() const;
    void setText(const QString &text);
    /// A character of the working text in the program's own set. The modem's alphabet ends at 127;
    /// what lies above is of our own set already.
    QChar ownCharacter(QChar raw);

    /// Adds a row; each value is a step of its own, so the row is written with those that went in.
    void add(Recordset &rows, std::initializer_list<std::pair<const char16_t *, QString>> values);
    /// Writes those values of the current row that are others now, in the same way.
    void change(Recordset &rows,
                std::initializer_list<std::pair<const char16_t *, QString>> values);

    /// A column of the current row takes the place of this value, unless it is empty.
    void takeName(QString &target, const Recordset &rows, const QString &column);
    using Lookup = ErrorRule::Lookup;
    /// Puts rsKatalog, read anew, on the person with this short number.
    Lookup findPerson(const QString &shortForm);
    /// The full number of the person with this short one, as the catalogue has it; a new person is
    /// added without a name.
    QString catalogKey(const QString &shortForm);
    /// Puts rsBrukereAll, read anew, on the sending door's row of this full number.
    Lookup findUserOnDoor(const QString &fullNumber);
    /// Puts rsKeyAll, read anew, on the sending door.
    Lookup findDoor();

    Module1 &module;
    Recordsets &recordsets;
    ErrorRule &rule;
    const QDate today;
    const QString dateFormat; ///< the system's short date, Host::dateFormat

    /// Stands behind the word of Status. It outlives the family that set it.
    QString StatusSuffix;

private:
    ModemResponse &response_;
    const CharacterTables &tables_;
};

/// Sum of the positions of all phrases: with one of them in the text, its position. With two it
/// points at nothing useful, and what follows cuts whatever stands there.
int phrasePosition(const QString &text, std::span<const QStringView> phrases);

/// The number before a phrase at this position, with the blank between them: what stands behind
/// the last line end at most 13 characters back ("+", ten digits, blank and line feed), or the
/// whole text before the phrase. A leading "+" and country code are cut off.
/// @throws RuntimeFailure when the phrase stands before position 14, or the line feed behind it.
QString numberBefore(const QString &text, int phrase);

/// The number behind the first "*": eight digits, and a ninth if there is one; empty for anything
/// else and for a number of zeros alone. What follows it doesn't count, a tenth digit neither.
QString starredNumber(const QString &text);
