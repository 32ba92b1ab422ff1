#include "simulator/SimulatorConsole.h"

#include "platform/RuntimeFailure.h"
#include "simulator/GsmAlphabet.h"

#include <algorithm>

namespace {

const QDate kNoEnd(2099, 12, 31);

FaultCount times(const QList<int> &numbers, qsizetype place)
{
    return numbers.size() > place ? FaultCount::times(numbers[place]) : FaultCount::always();
}

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

const SimulatorConsole::Fault SimulatorConsole::kFaults[] = {
    {u"mute", u"", u"the modem neither hears nor speaks",
     [](ModemFaults &faults, const QList<int> &) { faults.mute = true; }},
    {u"slow", u"[MS]", u"one character in so many milliseconds (100)",
     [](ModemFaults &faults, const QList<int> &numbers) {
         faults.perCharacter = milliseconds(numbers.value(0, 100));
     }},
    {u"refuse", u"[NUMBER [TIMES]]", u"submissions end in +CMS ERROR: NUMBER (500; 0: ERROR)",
     [](ModemFaults &faults, const QList<int> &numbers) {
         faults.refusalNumber = numbers.value(0, 500);
         faults.refuseSubmission = times(numbers, 1);
     }},
    {u"noprompt", u"[TIMES]", u"no prompt for a text",
     [](ModemFaults &faults, const QList<int> &numbers) { faults.noPrompt = times(numbers, 0); }},
    {u"lost", u"[TIMES]", u"messages go out, but their answers are lost",
     [](ModemFaults &faults, const QList<int> &numbers) { faults.loseAnswer = times(numbers, 0); }},
    {u"drop", u"[TIMES]", u"the line drops behind the prompt",
     [](ModemFaults &faults, const QList<int> &numbers) {
         faults.dropAtPrompt = times(numbers, 0);
     }},
    {u"echo", u"", u"the echo cannot be switched off",
     [](ModemFaults &faults, const QList<int> &) { faults.echoStuck = true; }},
    {u"garbage", u"", u"noise instead of answers",
     [](ModemFaults &faults, const QList<int> &) { faults.garbage = true; }},
    {u"nomt", u"", u"no storage \"MT\"",
     [](ModemFaults &faults, const QList<int> &) { faults.refuseMt = true; }},
    {u"noreports", u"", u"no status reports",
     [](ModemFaults &faults, const QList<int> &) { faults.refuseReports = true; }},
    {u"full", u"", u"no room for messages",
     [](ModemFaults &faults, const QList<int> &) { faults.storeFull = true; }},
    {u"recipient", u"", u"status reports name their recipient",
     [](ModemFaults &faults, const QList<int> &) { faults.recipientInReports = true; }},
};

SimulatorConsole::SimulatorConsole(Clock &clock, const QString &modemNumber,
                                   std::function<void(const QString &)> print)
    : print_(std::move(print)), network_(clock), modem_(clock, network_, modemNumber)
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
    const bool brief = parts.size() == 4 && parts[3] == u"brief";
    if (!words || parts[0].isEmpty() || (parts.size() > 3 && !brief)) {
        throw RuntimeFailure(
            QStringLiteral("A door is NUMBER:NAME:no, :da or :sv, not %1").arg(description));
    }
    const auto isTaken = [&](const auto &door) { return door->number() == parts[0]; };
    if (parts[0] == modem_.ownNumber() || std::ranges::any_of(doors_, isTaken)) {
        throw RuntimeFailure(QStringLiteral("The number %1 is taken").arg(parts[0]));
    }
    doors_.push_back(std::make_unique<DoorUnit>(network_, parts[0], parts[1], *words));
    if (brief) {
        doors_.back()->setAnswers(DoorUnit::Answers::Brief);
    }
}

void SimulatorConsole::addUser(const QString &description)
{
    const QString number = description.section(u':', 1);
    for (const auto &door : doors_) {
        if (door->number() == description.section(u':', 0, 0) && !number.isEmpty()) {
            door->seedUser(number, {DoorPeriod{QDate(2000, 1, 1), 0, kNoEnd, 24}});
            return;
        }
    }
    throw RuntimeFailure(
        QStringLiteral("A user is DOOR:NUMBER with the number of a door, not %1").arg(description));
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
        "sms FROM TEXT   a message to the modem from any number; \\n is a new line"));
    print_(QStringLiteral("doors           the doors and who is on them"));
    print_(QStringLiteral("clear           no fault any more"));
    print_(QStringLiteral("quit            leave"));
    print_(QStringLiteral("fault NAME      break the modem, until clear:"));
    for (const Fault &fault : kFaults) {
        print_(QStringLiteral("  %1 %2").arg(
            QStringLiteral("%1 %2").arg(fault.name, fault.arguments).leftJustified(25),
            fault.meaning));
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

void SimulatorConsole::setFault(const QString &arguments)
{
    QString rest = arguments;
    const QString name = takeWord(rest);
    QList<int> numbers;
    while (!rest.isEmpty()) {
        bool isNumber = false;
        numbers += takeWord(rest).toInt(&isNumber);
        if (!isNumber || numbers.back() < 0) {
            print_(QStringLiteral("The values of a fault are numbers from 0 up"));
            return;
        }
    }
    for (const Fault &fault : kFaults) {
        if (fault.name == name) {
            fault.set(modem_.faults(), numbers);
            return;
        }
    }
    print_(QStringLiteral("Unknown fault %1; try help").arg(name));
}

void SimulatorConsole::listDoors()
{
    for (const auto &door : doors_) {
        print_(QStringLiteral("%1 %2: %3 users")
                   .arg(door->number(), door->name(), QString::number(door->users().size())));
        for (const auto &[number, user] : door->users()) {
            print_(QStringLiteral("  %1%2 %3")
                       .arg(number,
                            user.foreign ? QStringLiteral(" foreign,") : QStringLiteral(","),
                            periodWords(user)));
        }
    }
}
