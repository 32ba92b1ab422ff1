#include "simulator/AtLine.h"

#include <cctype>

namespace {

bool isLetter(char character)
{
    return std::isalpha(static_cast<unsigned char>(character)) != 0;
}

bool isDigit(char character)
{
    return std::isdigit(static_cast<unsigned char>(character)) != 0;
}

/// Calls the function for each character with whether it stands inside of quotes.
template <class Function> void eachCharacter(const QByteArray &text, Function function)
{
    bool quoted = false;
    for (const char character : text) {
        if (character == '"') {
            quoted = !quoted;
        }
        function(character, quoted);
    }
}

QByteArray withoutBlanks(const QByteArray &line)
{
    QByteArray kept;
    eachCharacter(line, [&](char character, bool quoted) {
        if (character != ' ' || quoted) {
            kept += character;
        }
    });
    return kept;
}

/// Cuts the text up to the next semicolon outside of quotes off its front.
QByteArray takePart(QByteArray &rest)
{
    qsizetype end = 0;
    bool quoted = false;
    while (end < rest.size() && (quoted || rest[end] != ';')) {
        quoted = quoted != (rest[end++] == '"');
    }
    QByteArray part = rest.left(end);
    rest = rest.mid(end + 1);
    return part;
}

AtCommand extended(const QByteArray &part)
{
    qsizetype end = 1;
    while (end < part.size() && part[end] != '=' && part[end] != '?') {
        ++end;
    }
    AtCommand command{part.left(end).toUpper(), AtCommand::Kind::Execute, {}};
    const QByteArray rest = part.mid(end);
    if (rest == "?") {
        command.kind = AtCommand::Kind::Read;
    } else if (rest == "=?") {
        command.kind = AtCommand::Kind::Test;
    } else if (rest.startsWith('=')) {
        command.kind = AtCommand::Kind::Set;
        command.arguments = rest.mid(1);
    } else if (!rest.isEmpty()) {
        command.name.clear();
    }
    return command;
}

/// A letter, perhaps with "&" or a backslash in front, and its digits; an S register may be
/// asked for or set.
AtCommand takeBasic(QByteArray &rest)
{
    const qsizetype letter = rest[0] == '&' || rest[0] == '\\' || rest[0] == '%' ? 1 : 0;
    if (letter >= rest.size() || !isLetter(rest[letter])) {
        rest.clear();
        return {};
    }
    qsizetype end = letter + 1;
    while (end < rest.size() && isDigit(rest[end])) {
        ++end;
    }
    AtCommand command{rest.left(letter + 1).toUpper(), AtCommand::Kind::Execute,
                      rest.mid(letter + 1, end - letter - 1)};
    if (end < rest.size() && rest[end] == '?') {
        command.kind = AtCommand::Kind::Read;
        ++end;
    } else if (end < rest.size() && rest[end] == '=') {
        command.kind = AtCommand::Kind::Set;
        ++end;
        while (end < rest.size() && isDigit(rest[end])) {
            ++end;
        }
    }
    rest = rest.mid(end);
    return command;
}

} // namespace

std::optional<int> AtValue::number() const
{
    bool good = false;
    const int value = text.toInt(&good);
    if (quoted || !good || value < 0) {
        return std::nullopt;
    }
    return value;
}

std::vector<AtCommand> atCommands(const QByteArray &line)
{
    std::vector<AtCommand> commands;
    QByteArray rest = withoutBlanks(line);
    while (!rest.isEmpty()) {
        if (rest[0] == ';') {
            rest = rest.mid(1);
            continue;
        }
        commands.push_back(rest[0] == '+' ? extended(takePart(rest)) : takeBasic(rest));
        if (commands.back().name.isEmpty()) {
            break;
        }
    }
    return commands;
}

std::vector<AtValue> atValues(const QByteArray &arguments)
{
    std::vector<AtValue> values;
    if (arguments.isEmpty()) {
        return values;
    }
    values.emplace_back();
    eachCharacter(arguments, [&](char character, bool quoted) {
        if (character == '"') {
            values.back().quoted = true;
        } else if (character == ',' && !quoted) {
            values.emplace_back();
        } else {
            values.back().text += character;
        }
    });
    return values;
}
