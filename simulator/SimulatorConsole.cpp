#include "simulator/SimulatorConsole.h"

#include "platform/RuntimeFailure.h"
#include "simulator/GsmAlphabet.h"
#include "simulator/Personalities.h"

#include <algorithm>

namespace {

const QDate kNoEnd(2099, 12, 31);

/// The word in front; the rest stays, without the blanks between them.
QString takeWord(QString &line)
{
    line = line.trimmed();
    const qsizetype blank = line.indexOf(u' ');
    QString word = line.left(blank < 0 ? line.size() : blank);
    line = line.mid(word.size()).trimmed();
    return word;
}

QString periodWords(const DoorUser &user)
{
    if (user.hasBalance()) {
        return QStringLiteral("balance %1").arg(user.balance());
    }
    const DoorPeriod &period = user.period();
    return QStringLiteral("%1 %2:00 to %3 %4:00")
        .arg(period.from.toString(Qt::ISODate), QString::number(period.fromHour),
             period.to.toString(Qt::ISODate), QString::number(period.toHour));
}

QString settingWords(const DoorSettings &settings)
{
    QStringList assistants;
    for (const QString &number : settings.assistants) {
        assistants += number.isEmpty() ? QStringLiteral("-") : number;
    }
    return QStringLiteral("administrator %1, assistants %2, mode %3, alarm V%4, pulse %5 s")
        .arg(settings.administrator.isEmpty() ? QStringLiteral("-") : settings.administrator,
             assistants.join(u' '), settings.mode)
        .arg(settings.alarmFunction)
        .arg(settings.pulse);
}

/// What stands behind a door's language: its type, or how it answers.
bool takeKind(const QString &word, DoorType &type, DoorUnit::Answers &answers)
{
    static const QStringList types{QStringLiteral("310"), QStringLiteral("mk"),
                                   QStringLiteral("argon")};
    if (word == u"brief") {
        answers = DoorUnit::Answers::Brief;
    } else if (types.contains(word)) {
        type = static_cast<DoorType>(types.indexOf(word));
    } else {
        return false;
    }
    return true;
}

QStringView callWords(DoorCall call)
{
    switch (call) {
    case DoorCall::Opened:
        return u"opens";
    case DoorCall::Unknown:
        return u"does not know the number";
    case DoorCall::OutsidePeriod:
        return u"stays closed at this time";
    case DoorCall::NoBalance:
        return u"stays closed: the balance is used up";
    }
    Q_UNREACHABLE();
}

std::optional<DoorLanguage> language(const QString &word)
{
    if (word == u"no") {
        return DoorLanguage::Norwegian;
    }
    if (word == u"da") {
        return DoorLanguage::Danish;
    }
    if (word == u"sv") {
        return DoorLanguage::Swedish;
    }
    return std::nullopt;
}

} // namespace

SimulatorConsole::SimulatorConsole(Clock &clock, const QString &modemNumber,
                                   std::function<void(const QString &)> print)
    : clock_(clock), print_(std::move(print)), network_(clock), modem_(clock, network_, modemNumber)
{
    network_.setObserver([this](const SmsMessage &message, bool delivered) {
        QString text = fromGsm(message.text);
        text.replace(u'\n', QStringLiteral("\\n"));
        print_(QStringLiteral("sms %1 -> %2%3: %4")
                   .arg(message.from, message.to,
                        delivered ? QString() : QStringLiteral(" (nobody there)"), text));
    });
}

void SimulatorConsole::addDoor(const QString &description)
{
    const QStringList parts = description.split(u':');
    const auto words = parts.size() >= 3 ? language(parts[2]) : std::nullopt;
    DoorType type = DoorType::Type310;
    DoorUnit::Answers answers = DoorUnit::Answers::Full;
    const auto takes = [&](const QString &word) { return takeKind(word, type, answers); };
    if (!words || parts[0].isEmpty() || !std::ranges::all_of(parts.mid(3), takes)) {
        throw RuntimeFailure(
            QStringLiteral("A door is NUMBER:NAME:no, :da or :sv, perhaps with :310, :mk or :argon "
                           "and :brief behind it, not %1")
                .arg(description));
    }
    if (parts[0] == modem_.ownNumber() || door(parts[0]) != nullptr) {
        throw RuntimeFailure(QStringLiteral("The number %1 is taken").arg(parts[0]));
    }
    doors_.push_back(std::make_unique<DoorUnit>(network_, parts[0], parts[1], *words));
    doors_.back()->setType(type);
    doors_.back()->setAnswers(answers);
}

void SimulatorConsole::addUser(const QString &description)
{
    const auto [unit, number] = doorAndNumber(description);
    unit->seedUser(number, {DoorPeriod{QDate(2000, 1, 1), 0, kNoEnd, 24}});
}

void SimulatorConsole::addAdministrator(const QString &description)
{
    const auto [unit, number] = doorAndNumber(description);
    unit->seedAdministrator(number);
}

void SimulatorConsole::setAnswerDelay(milliseconds delay)
{
    for (const auto &door : doors_) {
        door->setAnswerDelay(delay);
    }
}

bool SimulatorConsole::command(const QString &line)
{
    QString rest = line;
    const QString word = takeWord(rest);
    if (word == u"quit") {
        return false;
    }
    if (word == u"sms") {
        sendSms(rest);
    } else if (word == u"fault") {
        setFault(rest);
    } else if (word == u"clear") {
        modem_.faults() = ModemFaults();
    } else if (word == u"doors") {
        listDoors();
    } else if (word == u"open") {
        callDoor(rest);
    } else if (word == u"alarm") {
        alarm(rest);
    } else if (word == u"help") {
        help();
    } else if (!word.isEmpty()) {
        print_(QStringLiteral("Unknown command %1; try help").arg(word));
    }
    return true;
}

void SimulatorConsole::help()
{
    print_(QStringLiteral(
        "sms FROM TEXT      a message to the modem from any number; \\n is a new line"));
    print_(QStringLiteral("doors              the doors, what they were told, and who is on them"));
    print_(QStringLiteral("open DOOR NUMBER   this number calls the door, which opens or doesn't"));
    print_(QStringLiteral("alarm DOOR         the door tells its administrators of an alarm"));
    print_(QStringLiteral("clear              no fault any more"));
    print_(QStringLiteral("quit               leave"));
    print_(QStringLiteral("fault NAME         break the modem, until clear:"));
    for (const Personality &each : kPersonalities) {
        print_(QStringLiteral("  %1 %2").arg(
            QStringLiteral("%1 %2").arg(each.name, each.arguments).leftJustified(28),
            each.meaning));
    }
}

void SimulatorConsole::sendSms(const QString &arguments)
{
    QString text = arguments;
    const QString from = takeWord(text);
    if (from.isEmpty() || text.isEmpty()) {
        print_(QStringLiteral("Give a number and a text: sms +4791234567 Hello"));
        return;
    }
    text.replace(QStringLiteral("\\n"), QStringLiteral("\n"));
    network_.send(from, modem_.ownNumber(), toGsm(text));
}

void SimulatorConsole::setFault(const QString &words)
{
    try {
        addPersonality(modem_.faults(), words);
    } catch (const RuntimeFailure &failure) {
        print_(failure.description());
    }
}

void SimulatorConsole::listDoors()
{
    for (const auto &door : doors_) {
        print_(QStringLiteral("%1 %2: %3 users")
                   .arg(door->number(), door->name(), QString::number(door->users().size())));
        print_(QStringLiteral("  ") + settingWords(door->settings()));
        for (const auto &[number, user] : door->users()) {
            print_(QStringLiteral("  %1%2 %3")
                       .arg(number,
                            user.foreign ? QStringLiteral(" foreign,") : QStringLiteral(","),
                            periodWords(user)));
        }
    }
}

void SimulatorConsole::callDoor(const QString &arguments)
{
    QString rest = arguments;
    DoorUnit *const unit = door(takeWord(rest));
    if (unit == nullptr || rest.isEmpty()) {
        print_(QStringLiteral("Give a door and a number: open +4790000001 +4791234567"));
        return;
    }
    const DoorCall call = unit->call(rest, clock_.now());
    print_(QStringLiteral("%1 %2").arg(unit->name(), callWords(call)));
}

void SimulatorConsole::alarm(const QString &arguments)
{
    DoorUnit *const unit = door(arguments);
    if (unit == nullptr) {
        print_(QStringLiteral("Give a door: alarm +4790000001"));
        return;
    }
    print_(QStringLiteral("%1 tells %2 of the alarm").arg(unit->name()).arg(unit->alarm()));
}

DoorUnit *SimulatorConsole::door(const QString &number) const
{
    const auto found =
        std::ranges::find_if(doors_, [&](const auto &unit) { return unit->number() == number; });
    return found == doors_.end() ? nullptr : found->get();
}

std::pair<DoorUnit *, QString> SimulatorConsole::doorAndNumber(const QString &description) const
{
    DoorUnit *const unit = door(description.section(u':', 0, 0));
    const QString number = description.section(u':', 1);
    if (unit == nullptr || number.isEmpty()) {
        throw RuntimeFailure(
            QStringLiteral("Give DOOR:NUMBER with the number of a door, not %1").arg(description));
    }
    return {unit, number};
}
