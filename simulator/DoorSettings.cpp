#include "simulator/DoorSettings.h"

#include <QRegularExpression>

namespace {

constexpr unsigned bit(DoorType type)
{
    return 1U << static_cast<unsigned>(type);
}
constexpr unsigned kLists = bit(DoorType::Type310) | bit(DoorType::Mk);
constexpr unsigned kEvery = kLists | bit(DoorType::Argon);

using Match = QRegularExpressionMatch;

struct Setting {
    QRegularExpression pattern;
    unsigned types;
    Obeyed answer;
    void (*set)(DoorSettings &settings, const Match &match);
};

QRegularExpression whole(const char *pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromLatin1(pattern)));
}

void setMode(DoorSettings &settings, const Match &match)
{
    settings.mode = match.captured();
}

void setText(DoorSettings &settings, const Match &match)
{
    settings.texts.at(match.captured(1).toUInt() - 1) = match.captured(2);
}

const std::array<Setting, 10> &commands()
{
    static const std::array<Setting, 10> kCommands{{
        {whole("A([1-5]) ([0-9]{8,9})?"), kEvery, Obeyed::WithReport,
         [](DoorSettings &settings, const Match &match) {
             settings.assistants.at(match.captured(1).toUInt() - 1) = match.captured(2);
         }},
        {whole("A6 ([0-9]{8,9}|\\+[0-9]{10,12})?"), kEvery, Obeyed::WithReport,
         [](DoorSettings &settings, const Match &match) {
             settings.ownNumber =
                 match.captured(1).isEmpty() ? DoorSettings::kNoOwnNumber : match.captured(1);
         }},
        {whole("A7 ((?:[01][0-9]|2[0-4]){4})"), kLists, Obeyed::Silently,
         [](DoorSettings &settings, const Match &match) { settings.hours = match.captured(1); }},
        {whole("B !?+(.{0,20})"), kEvery, Obeyed::WithReport,
         [](DoorSettings &settings, const Match &match) { settings.name = match.captured(1); }},
        {whole("V([0-8])"), kLists, Obeyed::Silently,
         [](DoorSettings &settings, const Match &match) {
             settings.alarmFunction = match.captured(1).toInt();
         }},
        {whole("[NLO]|O ([01][0-9]|2[0-3])-(?1)\\*[1-7]"), bit(DoorType::Type310), Obeyed::Silently,
         setMode},
        {whole("[NLO]|O ((?:[01][0-9]|2[0-3]):[0-5][0-9])-(?1)\\*[1-7]"), bit(DoorType::Mk),
         Obeyed::Silently, setMode},
        {whole("P 0{0,4}([1-9][0-9]{0,4})"), kEvery, Obeyed::Silently,
         [](DoorSettings &settings, const Match &match) {
             settings.pulse = match.captured(1).toInt();
         }},
        {whole("T([1-5]) (.{0,50})"), kEvery, Obeyed::Silently, setText},
        {whole("T(6) (.{0,15})"), kEvery, Obeyed::Silently, setText},
    }};
    return kCommands;
}

} // namespace

Obeyed obey(DoorSettings &settings, const QString &command, DoorType type)
{
    for (const Setting &setting : commands()) {
        const Match match = setting.pattern.match(command);
        if (match.hasMatch() && (setting.types & bit(type)) != 0) {
            setting.set(settings, match);
            return setting.answer;
        }
    }
    return Obeyed::No;
}
