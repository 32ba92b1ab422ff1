#pragma once

#include <QString>

#include <array>

/// The models of door units, which differ in the commands that they have.
enum class DoorType {
    Type310, ///< 310/520: periods of a function mode are whole hours, as 07-16
    Mk,      ///< periods of a function mode have minutes, as 07:45-16:15
    Argon,   ///< neither hours, alarm function nor function mode; its users cannot be fetched
};

/// All that a unit is told by commands, its users apart.
struct DoorSettings {
    QString name;          ///< at most 20 characters
    QString administrator; ///< the number that messages come from; empty when the place is open
    bool handedOn = false; ///< the place is open, and whoever writes next gets it
    std::array<QString, 5> assistants; ///< national numbers of 8 or 9 digits; empty: nobody
    QString ownNumber = kNoOwnNumber;
    QString hours = QStringLiteral("00240024"); ///< from, to of registering in; the same of out
    int alarmFunction = 1;                      ///< 0 to 8; 0 is off
    QString mode = QStringLiteral("N");         ///< as in its command: N, L, O or O 07-16*5
    int pulse = 5;                              ///< seconds, from 1
    /// Two halves of the welcome and of the leaving message, the alarm text, and the line under
    /// it: 50 characters at most, the last 15.
    std::array<QString, 6> texts{{{}, {}, {}, {}, QStringLiteral("ALARM"), {}}};
    bool operator==(const DoorSettings &) const = default;

    /// What stands for an own number that nobody has told the unit yet.
    static inline const QString kNoOwnNumber = QStringLiteral("99999999");
};

enum class Obeyed { No, Silently, WithReport };

/// Obeys one command, in exactly this case and with exactly these blanks:
///
///   A1 91234567 … A5     assistants; "A1 " clears the place
///   A6 90000001          the own number, or +4790000001; "A6 " forgets it
///   A7 07091517          hours for registering in and out, each 00 to 24
///   B !Hovedport         the name; "B !" clears it
///   V0 … V8              alarm function
///   N, L, O, O 07-16*5   function mode; the period as the type has it, and the mode's code 1 to 7
///   P 5                  seconds of the door's pulse, at most five digits
///   T1 Velkommen … T6    texts; "T1 " clears one
///
/// Anything else, also what is too long or out of range, changes nothing.
Obeyed obey(DoorSettings &settings, const QString &command, DoorType type);
