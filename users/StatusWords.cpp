#include "users/StatusWords.h"

#include "data/Connection.h"
#include "data/Criteria.h"
#include "data/Module1.h"
#include "modem/OutboundQueue.h"
#include "platform/Clock.h"
#include "platform/Rules.h"
#include "platform/Text.h"
#include "users/Numbers.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

constexpr milliseconds kPatience = 100ms;

QString words(const char *text)
{
    return QCoreApplication::translate("StatusWords", text);
}

/// The last command about a user that was queued for his door.
struct Command {
    enum class State { None, Queued, Refused, Sent };
    State state = State::None;
    QDateTime sent;         ///< invalid when nobody knows any more
    QDateTime delivered;    ///< invalid without a report
    bool hasFailed = false; ///< to reach the door, by the report
};

/// The time of a delivery report, as "26/12/01,09:30:05+04".
QDateTime reportTime(const QString &text)
{
    return QDateTime::fromString(u"20"_qs + text.left(17), u"yyyy/MM/dd,HH:mm:ss"_qs);
}

Command lastCommand(Connection &file, const OutboundQueue &queue, const ShownUser &user,
                    bool isDeletion, bool isQueued)
{
    const QString start =
        isDeletion ? u"U "_qs + numberToEnd(user.number) : u"I "_qs + shortNumber(user.number);
    Command command;
    file.run(u"SELECT ID, CMGS, TimeSent, TimeReceived, ReceivedStatus FROM SMS_Sent WHERE "_qs +
                 equals(u"TilNummer"_qs) + (isQueued ? u" AND "_qs + equals(u"CMGS"_qs) : u""_qs) +
                 u" AND substr(SMS_Text, 1, length(?)) = ? COLLATE NOCASE"
                 " AND substr(SMS_Text, 1 + length(?), 1) IN ('', '>', '*')"
                 " ORDER BY ID DESC LIMIT 1"_qs,
             isQueued ? QVariantList{user.door, u"UNSENT"_qs, start, start, start}
                      : QVariantList{user.door, start, start, start},
             [&](const QVariantList &row) {
                 const QString state = row[1].toString();
                 const bool isRefused = state.isEmpty() || same(state, u"Error"_qs);
                 command.state = state == u"UNSENT" ? Command::State::Queued
                                 : isRefused        ? Command::State::Refused
                                                    : Command::State::Sent;
                 const QDateTime reported = reportTime(row[2].toString());
                 command.sent = reported.isValid() ? reported : queue.sentAt(row[0].toLongLong());
                 command.hasFailed = holds(row[4].toString(), u"Fail"_qs);
                 command.delivered =
                     command.hasFailed ? QDateTime() : reportTime(row[3].toString());
             });
    return command;
}

bool isOnDoor(Connection &file, const ShownUser &user)
{
    return file
        .single(u"SELECT 1 FROM TBLbrukere WHERE "_qs + equals(u"KeyBruker"_qs) + u" AND "_qs +
                    equals(u"KeyNummer"_qs),
                {user.number, user.door})
        .isValid();
}

QString told(const Command &command, bool isUnderWay, const QString &dateFormat)
{
    const auto when = [&](const char *text, const QDateTime &time) {
        return words(text).arg(time.toString(dateFormat), time.toString(u"HH:mm"_qs));
    };
    using enum Command::State;
    if (command.state == Queued) {
        return words("Kommandoen ligger i køen og er ikke sendt ennå.");
    }
    if (command.state == Refused) {
        return words("Nettet tok ikke imot kommandoen, og den sendes ikke igjen av seg selv.");
    }
    if (!isUnderWay) {
        return words("Ingen kommando ligger i køen.");
    }
    QStringList sentences = {command.sent.isValid()
                                 ? when("Kommandoen ble sendt %1 kl. %2.", command.sent)
                                 : words("Kommandoen er sendt.")};
    if (command.hasFailed) {
        sentences += words("Nettet melder at den ikke kom frem.");
    } else if (command.delivered.isValid()) {
        sentences += when("Den kom frem %1 kl. %2.", command.delivered);
    }
    sentences += words("Døren har ikke svart ennå.");
    return sentences.join(u' ');
}

QString explained(Connection &file, const Module1 &module, const OutboundQueue &queue,
                  const QString &dateFormat, const ShownUser &user)
{
    if (user.isWaiting) {
        return isOnDoor(file, user)
                   ? words("Perioden venter på at brukerens forrige periode er borte fra døren.")
               : module.ModemReady ? words("Perioden er lagret. Kommandoen legges snart i køen.")
                                   : words("Perioden er lagret. Kommandoen legges i køen når "
                                           "modemet er klart.");
    }
    const QString status = user.status.trimmed();
    const auto command = [&](bool isDeletion, bool isQueued = false) {
        return lastCommand(file, queue, user, isDeletion, isQueued);
    };
    if (status.startsWith(u"Aktiv", Qt::CaseInsensitive)) {
        const bool changes = command(false, true).state == Command::State::Queued;
        return words("Døren har meldt at brukeren er lagt inn.") +
               (changes ? u' ' + words("En ny kommando ligger i køen og er ikke sendt ennå.")
                        : QString());
    }
    if (same(status, u"NY"_qs) || same(status, u"Registrerer"_qs)) {
        return told(command(false), same(status, u"Registrerer"_qs), dateFormat);
    }
    if (same(status, u"Slett"_qs) || same(status, u"Sletter"_qs)) {
        return words("Brukeren skal slettes fra døren.") + u' ' +
               told(command(true), same(status, u"Sletter"_qs), dateFormat);
    }
    return {};
}

} // namespace

QString statusWords(const Module1 &module, const OutboundQueue &queue, const QString &dateFormat,
                    const ShownUser &user)
{
    QString text;
    kept([&] {
        if (module.DatabaseConnection) {
            const auto file = module.DatabaseConnection->another(kPatience);
            text = explained(*file, module, queue, dateFormat, user);
        }
    });
    return text;
}
