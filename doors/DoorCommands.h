#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

// The command language of the door units: one command is one SMS, in exactly this case and with
// exactly these blanks. It has no frame, no number and no end mark. What the units understand is
// their makers' affair; this is all that the door configuration screen says to them.

/// The models of door units, in the order of the options KeyType.
enum class DoorModel { Type310, Mk, Argon };

/// What stands on the door configuration screen, as the commands read it.
struct DoorEntry {
    std::array<QString, 22> KeyTXT; ///< texts of the fields, by their index
    std::array<QString, 4> hours;   ///< registering in from and to, registering out from and to
    int alarmFunction = -1;         ///< position in alarmFunctions(), from 0; -1 for none
    int functionMode = -1;          ///< position in functionModes(), from 0; -1 for none
    QString period;                 ///< periodText() for a timed mode; empty when none was given
};

/// The text of the command with this index: 1, and 4 to 21.
///
/// Nothing when the list that it reads has no selection: then nothing at all is to happen. The
/// empty text for a timed mode without a period: it isn't sent, but what goes with it happens. An
/// empty field gives its keyword with the blank alone, and that clears the setting.
std::optional<QString> doorCommand(int index, const DoorEntry &entry);

/// Whether Admin says that this program's modem is no administrator of the unit. Only "0" does;
/// "00" or a blank don't.
bool lacksAdministrator(const QString &Admin);
/// Whether Eget_Nummer stands for a number that was never set.
bool isUnsetOwnNumber(const QString &Eget_Nummer);

/// Entries of the two lists, in their fixed order and the language of the moment.
QStringList alarmFunctions();
QStringList functionModes();
/// Whether the function mode at this position goes with a period.
bool isTimedMode(int position);

/// Brings a period that was typed loosely ("7-16", "7:45-9:30") to the form hh:mm-hh:mm. What is
/// no period comes out as something that checkPeriod() doesn't pass.
QString TimeFieldNormalise(const QString &typed);

enum class PeriodCheck {
    Passes,
    Fails,   ///< a time that doesn't exist, or a wrong sign between
    NoNumber ///< something else than two digits where a number belongs
};

/// Looks at the first eleven characters; nothing compares the start with the stop. 24 is no hour
/// here, though it is one in the lists of hours.
PeriodCheck checkPeriod(const QString &normalised);

/// A period that passed, as the model takes it: whole hours hh-hh for Type310, where the minutes
/// fall away; otherwise all of the text, with whatever was typed behind it.
QString periodText(const QString &normalised, std::optional<DoorModel> model);
