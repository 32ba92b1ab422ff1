#pragma once

#include <QByteArray>

#include <optional>
#include <vector>

/// One command of a command line (ITU-T V.250, 5.3 and 5.4).
struct AtCommand {
    enum class Kind { Execute, Set, Read, Test };
    /// In capitals: "+CMGF", "E", "&F", "\Q". Empty when it cannot be read at all.
    QByteArray name;
    Kind kind = Kind::Execute;
    /// What stands behind "=", or the digits behind a basic command's letter.
    QByteArray arguments;
};

/// One value of a command's arguments. Blanks around it and its quotes are gone.
struct AtValue {
    QByteArray text;
    bool quoted = false;
    /// The value as a number; nothing when it is quoted, empty or no number from 0 up.
    std::optional<int> number() const;
};

/// The commands of a line, whose leading "AT" is not in it, in their order. What follows an
/// unreadable command is not looked at.
std::vector<AtCommand> atCommands(const QByteArray &line);

/// The values between the commas outside of quotes; none for an empty text.
std::vector<AtValue> atValues(const QByteArray &arguments);
