#include "doors/DoorCommands.h"

#include "platform/Text.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

using Operand = std::optional<QString>;

struct FunctionMode {
    const char *entry;
    const char *letter;
    const char *code = nullptr; ///< stands behind the period; none for a mode without one
};

// The codes are not in the order of the list.
constexpr FunctionMode kFunctionModes[] = {
    {QT_TRANSLATE_NOOP("DoorCommands", "Normal  (N)"), "N"},
    {QT_TRANSLATE_NOOP("DoorCommands", "Lukket  (L)"), "L"},
    {QT_TRANSLATE_NOOP("DoorCommands", "Oppe    (O)"), "O"},
    {QT_TRANSLATE_NOOP("DoorCommands", "Oppe hverdager"), "O", "*5"},
    {QT_TRANSLATE_NOOP("DoorCommands", "Oppe alle dager"), "O", "*7"},
    {QT_TRANSLATE_NOOP("DoorCommands", "Bistabil hverdager"), "O", "*4"},
    {QT_TRANSLATE_NOOP("DoorCommands", "Bistabil alle dager"), "O", "*6"},
    {QT_TRANSLATE_NOOP("DoorCommands", "Bare i dag"), "O", "*1"},
    {QT_TRANSLATE_NOOP("DoorCommands", "Hverdager int. 2"), "O", "*2"},
    {QT_TRANSLATE_NOOP("DoorCommands", "Alle dager int. 2"), "O", "*3"},
};

// The command carries the position. The last entry's misspelling is what databases hold.
constexpr const char *kAlarmFunctions[] = {
    QT_TRANSLATE_NOOP("DoorCommands", "ALARM AV"),
    QT_TRANSLATE_NOOP("DoorCommands", "ALARM PÅ"),
    QT_TRANSLATE_NOOP("DoorCommands", "Åpnet ved ALARM"),
    QT_TRANSLATE_NOOP("DoorCommands", "Stengt ved ALARM"),
    QT_TRANSLATE_NOOP("DoorCommands", "Endebryter A"),
    QT_TRANSLATE_NOOP("DoorCommands", "Endebryter B"),
    QT_TRANSLATE_NOOP("DoorCommands", "Endebr.A m/rapport"),
    QT_TRANSLATE_NOOP("DoorCommands", "Endebr.B m/rapport"),
    QT_TRANSLATE_NOOP("DoorCommands", "ALARM Enderbryter"),
};

Operand nothing(int, const DoorEntry &)
{
    return QString();
}

Operand field(int index, const DoorEntry &entry)
{
    return entry.KeyTXT[static_cast<std::size_t>(index)];
}

/// "?" asks the unit to take the sender as its administrator; "AR" opens the place to whoever
/// writes next.
Operand administrator(int, const DoorEntry &entry)
{
    return lacksAdministrator(entry.KeyTXT[14]) ? QStringLiteral("?") : QStringLiteral("AR");
}

/// A number that was never set goes out as the door's own, with its country code: the unit is to
/// get that form, in contrast to the eight digits otherwise, and behind exactly one blank.
Operand ownNumber(int index, const DoorEntry &entry)
{
    return isUnsetOwnNumber(entry.KeyTXT[9]) ? entry.KeyTXT[0].trimmed() : field(index, entry);
}

/// The unit wants a "!" before its name. One that was typed isn't doubled.
Operand markedName(int, const DoorEntry &entry)
{
    const QString &name = entry.KeyTXT[10];
    return name.startsWith(u'!') ? name : u'!' + name;
}

Operand alarmFunction(int, const DoorEntry &entry)
{
    return entry.alarmFunction < 0 ? Operand() : QString::number(entry.alarmFunction);
}

Operand functionMode(int, const DoorEntry &entry)
{
    if (entry.functionMode < 0) {
        return {};
    }
    const FunctionMode &mode = kFunctionModes[entry.functionMode];
    if (mode.code == nullptr) {
        return QString::fromLatin1(mode.letter);
    }
    return entry.period.isEmpty() ? QString()
                                  : QString::fromLatin1(mode.letter) + u' ' + entry.period +
                                        QString::fromLatin1(mode.code);
}

Operand hours(int, const DoorEntry &entry)
{
    return entry.hours[0] + entry.hours[1] + entry.hours[2] + entry.hours[3];
}

struct Command {
    int index; ///< of the button, and of the field where there is one
    const char *keyword;
    Operand (*operand)(int index, const DoorEntry &entry);
};

// All there are. Their captions stand on the buttons Command1.
constexpr Command kCommands[] = {
    {1, "", administrator},   // Registrer ADMIN, Reset ADMIN
    {4, "A1 ", field},        // Admin1
    {5, "A2 ", field},        // Admin2
    {6, "A3 ", field},        // Admin3
    {7, "A4 ", field},        // Admin4
    {8, "A5 ", field},        // Admin5
    {9, "A6 ", ownNumber},    // Eget_Nummer
    {10, "B ", markedName},   // Beskrivelse
    {11, "V", alarmFunction}, // Alarmstatus
    {12, "", functionMode},   // KeyStatus
    {13, "P ", field},        // Pulslengde
    {14, "K", nothing},       // Hent BRUKERE
    {15, "T1 ", field},       // Tekst1
    {16, "T2 ", field},       // Tekst2
    {17, "T3 ", field},       // Tekst3
    {18, "T4 ", field},       // Tekst4
    {19, "T5 ", field},       // Tekst5
    {20, "T6 ", field},       // Tekst6
    {21, "A7 ", hours},       // TimeInStart, TimeInStop, TimeOutStart, TimeOutStop
};

bool isNumber(const QString &text)
{
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    return text.size() == 2 && std::all_of(text.begin(), text.end(), isDigit);
}

} // namespace

std::optional<QString> doorCommand(int index, const DoorEntry &entry)
{
    const auto *const command =
        std::find_if(std::begin(kCommands), std::end(kCommands),
                     [index](const Command &candidate) { return candidate.index == index; });
    if (command == std::end(kCommands)) {
        return std::nullopt;
    }
    const Operand operand = command->operand(index, entry);
    return operand ? QString::fromLatin1(command->keyword) + *operand : operand;
}

bool lacksAdministrator(const QString &Admin)
{
    return Admin == u"0";
}

bool isUnsetOwnNumber(const QString &Eget_Nummer)
{
    return Eget_Nummer == u"6" || Eget_Nummer == u"99999999";
}

QStringList alarmFunctions()
{
    QStringList entries;
    for (const char *const entry : kAlarmFunctions) {
        entries += QCoreApplication::translate("DoorCommands", entry);
    }
    return entries;
}

QStringList functionModes()
{
    QStringList entries;
    for (const FunctionMode &mode : kFunctionModes) {
        entries += QCoreApplication::translate("DoorCommands", mode.entry);
    }
    return entries;
}

bool isTimedMode(int position)
{
    return position >= 0 && kFunctionModes[position].code != nullptr;
}

QString TimeFieldNormalise(const QString &typed)
{
    QString text = typed;
    const auto holdsAt = [&text](int position, char16_t sign) {
        return mid(text, position, 1) == QChar(sign);
    };
    const auto insertBehind = [&text](int position, const QString &inserted) {
        text = left(text, position) + inserted + mid(text, position + 1);
    };
    if (holdsAt(2, u':')) {
        text.prepend(u'0');
    }
    if (holdsAt(2, u'-')) {
        text.prepend(u'0');
    }
    if (holdsAt(3, u'-')) {
        insertBehind(2, QStringLiteral(":00"));
    }
    if (holdsAt(8, u':')) {
        insertBehind(6, QStringLiteral("0"));
    }
    if (text.size() == 7) {
        insertBehind(6, QStringLiteral("0"));
    }
    if (text.size() == 8) {
        text += QStringLiteral(":00");
    }
    return text;
}

PeriodCheck checkPeriod(const QString &normalised)
{
    constexpr int kHours = 24;
    constexpr int kMinutes = 60;
    constexpr struct {
        int position;
        int below;
    } kNumbers[] = {{1, kHours}, {4, kMinutes}, {7, kHours}, {10, kMinutes}};
    constexpr struct {
        int position;
        char16_t sign;
    } kSigns[] = {{3, u':'}, {6, u'-'}, {9, u':'}};

    bool passes = true;
    for (const auto &[position, below] : kNumbers) {
        const QString number = mid(normalised, position, 2);
        // A sign or a blank would be a number too, and the unit would be told of 0-1 o'clock.
        if (!isNumber(number)) {
            return PeriodCheck::NoNumber;
        }
        passes = passes && number.toInt() < below;
    }
    for (const auto &[position, sign] : kSigns) {
        passes = passes && mid(normalised, position, 1) == QChar(sign);
    }
    return passes ? PeriodCheck::Passes : PeriodCheck::Fails;
}

QString periodText(const QString &normalised, std::optional<DoorModel> model)
{
    return model == DoorModel::Type310 ? left(normalised, 2) + u'-' + mid(normalised, 7, 2)
                                       : normalised;
}
