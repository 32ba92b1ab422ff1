#include "modem/OutboundQueue.h"

#include "data/Dates.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/PassOn.h"
#include "modem/SendPace.h"
#include "modem/SmsSubmitter.h"
#include "platform/Clock.h"
#include "platform/Rules.h"
#include "platform/Text.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace {

constexpr milliseconds kBetweenMessages = 30000ms;
constexpr int kBehindCountryCode = 4; ///< the code is taken to have two digits
constexpr int kShortLength = 9;

// With reports off a result up to here is a reference of the network; a byte and one more.
constexpr int kHighestReference = 256;

/// The number behind the word of a command, short form. Any text is taken for a command; of one
/// that is none, nothing is found.
QString numberIn(const QString &text)
{
    const QString behindWord = mid(text, 3, kShortLength);
    // Numbers of eight digits end before that, where the period or the balance begins.
    const auto *const end = std::find_if(behindWord.begin(), behindWord.end(), [](QChar character) {
        return character == u'>' || character == u'*';
    });
    return behindWord.left(end - behindWord.begin());
}

/// What all commands to a door have in common. Each door gets its own: taking over the row of
/// another door would lose that one's command.
OutboundSms toDoor(const QString &door, const QString &doorName, const QString &text,
                   const QDate &date, OutboundSms::Hurry hurry)
{
    return {.recipient = door,
            .recipientShort = mid(door, kBehindCountryCode),
            .text = text,
            .Etternavn = doorName,
            .Fornavn = {},
            .date = date,
            .takesOver = OutboundSms::TakesOver::SameRecipients,
            .hurry = hurry};
}

} // namespace

OutboundSms OutboundSms::freeText(const QString &recipient, const QString &text,
                                  const QString &Etternavn, const QString &Fornavn,
                                  const QDate &today)
{
    return {.recipient = recipient,
            .recipientShort = mid(recipient, kBehindCountryCode, kShortLength),
            .text = text,
            .Etternavn = Etternavn,
            .Fornavn = Fornavn,
            .date = today,
            .takesOver = TakesOver::Anybodys,
            .hurry = Hurry::Always};
}

OutboundSms OutboundSms::doorCommand(const QString &door, const QString &doorName,
                                     const QString &text, const QDate &day, const QString &state)
{
    // The operations on users hurry by themselves, before they begin.
    OutboundSms sms = toDoor(door, doorName, text, day, Hurry::Never);
    sms.state = state;
    return sms;
}

OutboundSms OutboundSms::doorSetting(const QString &door, const QString &doorName,
                                     const QString &text, const QDate &today)
{
    return toDoor(door, doorName, text, today, Hurry::Never);
}

OutboundSms OutboundSms::logRequest(const QString &door, const QString &doorName,
                                    const QString &text, const QDate &today)
{
    return toDoor(door, doorName, text, today, Hurry::ForNewRow);
}

bool queueSms(Recordset &outbox, const OutboundSms &sms)
{
    const bool anybodys = sms.takesOver == OutboundSms::TakesOver::Anybodys;
    const bool waits = anybodys ? outbox.findFirst(u"SMS_text"_qs, sms.text)
                                : sms.takesOver == OutboundSms::TakesOver::SameRecipients &&
                                      outbox.findFirst(u"SMS_text"_qs, sms.text,
                                                       {{u"TilNummer"_qs, sms.recipient}});
    if (!waits) {
        outbox.addNew();
    }
    // A free text stays as it waits. Of a command the last wording counts: in other capitals it
    // sets another text on the unit.
    if (!waits || !anybodys) {
        outbox.setValue(u"SMS_Text"_qs, sms.text);
    }
    if (!waits || anybodys) {
        outbox.setValue(u"TilNummer"_qs, sms.recipient);
        outbox.setValue(u"TilNummerKort"_qs, sms.recipientShort);
    }
    outbox.setValue(u"Dato"_qs, storedDate(sms.date));
    outbox.setValue(u"DatoLNG"_qs, dayNumber(sms.date));
    outbox.setValue(u"CMGS"_qs, sms.state);
    if (!sms.Etternavn.isEmpty()) {
        outbox.setValue(u"Etternavn"_qs, sms.Etternavn);
    }
    if (!sms.Fornavn.isEmpty()) {
        outbox.setValue(u"Fornavn"_qs, sms.Fornavn);
    }
    outbox.update();
    return !waits;
}

void queueSms(Recordset &outbox, SendPace &pace, const OutboundSms &sms)
{
    // First, so that a message that fails hurries what waits already, as it always did.
    if (sms.hurry == OutboundSms::Hurry::Always) {
        pace.hurry();
    }
    if (queueSms(outbox, sms) && sms.hurry == OutboundSms::Hurry::ForNewRow) {
        pace.hurry();
    }
}

OutboundQueue::OutboundQueue(Clock &clock, Module1 &module, ModemFlags &flags,
                             Recordsets &recordsets, SmsSubmitter &submitter, SendPace &pace,
                             Timer &timerCom)
    : clock_(clock),
      module_(module),
      flags_(flags),
      recordsets_(recordsets),
      submitter_(submitter),
      pace_(pace),
      timerCom_(timerCom)
{
}

void OutboundQueue::QueueOutboundSms(const QString &recipient, const QString &text,
                                     const QString &Etternavn, const QString &Fornavn)
{
    queue(OutboundSms::freeText(recipient, text, Etternavn, Fornavn, clock_.now().date()));
}

void OutboundQueue::queueDoorCommand(const QString &door, const QString &doorName,
                                     const QString &command, const QDate &date,
                                     const QString &state)
{
    queue(OutboundSms::doorCommand(door, doorName, command, date, state));
}

void OutboundQueue::queue(const OutboundSms &sms)
{
    queueSms(recordsets_.rsSmsOutbox, pace_, sms);
}

void OutboundQueue::SendQueuedSms()
{
    if (unwritten() != accepted_.end()) {
        writeOutcome();
        return;
    }
    {
        const LineOwner::Turn turn(flags_.owner, LineOwner::Who::Queue);
        flags_.QueueRunning = true;
        timerCom_.setEnabled(false);
        // A failure leaves the row "UNSENT" and the pace as it is, so that the next tick tries the
        // same message again, and again.
        kept([&] { sendFirst(); });
        flags_.QueueRunning = false;
        timerCom_.setEnabled(true);
    }
    flags_.QueueAwaited = false;
    for (const auto waiting = std::exchange(next_, {}); const auto &next : waiting) {
        next();
    }
    passOnTheEnd(clock_);
}

std::vector<OutboundQueue::Submission>::iterator OutboundQueue::unwritten()
{
    return std::ranges::find(accepted_, module_.DatabasePath, &Submission::file);
}

void OutboundQueue::writeOutcome()
{
    if (const auto first = unwritten(); first != accepted_.end()) {
        const Submission sms = *first;
        accepted_.erase(first);
        settle(sms);
    }
}

QDateTime OutboundQueue::sentAt(qint64 row) const
{
    return sentAt_.value({module_.DatabasePath, row});
}

void OutboundQueue::whenIdle(std::function<void()> next)
{
    if (!flags_.QueueRunning) {
        next();
        return;
    }
    flags_.QueueAwaited = true;
    next_.push_back(std::move(next));
}

void OutboundQueue::sendFirst()
{
    Recordset &outbox = recordsets_.rsSmsOutbox;
    outbox.sort(u"datolng"_qs);
    if (!outbox.findFirst(u"CMGS"_qs, u"UNSENT"_qs)) {
        flags_.QueuePending = false;
        pace_.slowDown();
        return;
    }
    Submission sms{.file = module_.DatabasePath,
                   .row = outbox.bookmark(),
                   .text = outbox.text(u"SMS_Text"_qs),
                   .recipient = outbox.text(u"TilNummer"_qs)};
    submitter_.SendSms(sms.text, sms.recipient);
    sms.result = module_.LastCmgsResult;
    sentAt_[{sms.file, sms.row}] = clock_.now();
    if (submitter_.wasCutShort() && same(sms.result, u"Error"_qs)) {
        return; // the row waits on
    }
    settle(sms);
}

/// Writes the outcome. When that fails the row goes on waiting, and is sent again; but one that the
/// network took would reach the door twice, so the next tick only writes it, and says if it can't.
void OutboundQueue::settle(const Submission &sms)
{
    // With reports off a result that is no number is not to be written at all: the row waits on.
    const bool wasTaken = !sms.result.isEmpty() && !same(sms.result, u"Error"_qs);
    bool isNumber = false;
    sms.result.trimmed().toUInt(&isNumber);
    const bool isAccepted = wasTaken && (isNumber || module_.SmsReportOn);
    auto unwritten = qScopeGuard([&] {
        if (isAccepted) {
            accepted_.push_back(sms);
        }
    });
    // A screen may have queued something meanwhile, or had the sets opened anew, even on another
    // file; somebody may have deleted the row or the door. The result is that of this row alone.
    if (module_.DatabasePath == sms.file) {
        // The user's state goes with the result: a file that cannot be had takes neither. A number
        // that cannot be looked up costs the state alone.
        recordsets_.atOnce([&] {
            if (isStillQueued(sms)) {
                writeResult(sms.result);
                kept([&] { wasTaken ? markUser(sms.text, sms.recipient) : void(); });
            }
        });
        unwritten.dismiss();
        outcomeWritten();
    }
    pace_.restart(kBetweenMessages);
    flags_.QueuePending = true;
}

bool OutboundQueue::isStillQueued(const Submission &sms)
{
    Recordset &outbox = recordsets_.rsSmsOutbox;
    outbox.setBookmark(sms.row);
    return outbox.row() && outbox.text(u"CMGS"_qs) == u"UNSENT" &&
           outbox.text(u"SMS_Text"_qs) == sms.text && outbox.text(u"TilNummer"_qs) == sms.recipient;
}

void OutboundQueue::writeResult(const QString &result)
{
    Recordset &row = recordsets_.rsSmsOutbox;
    if (module_.SmsReportOn) {
        row.setValue(u"CMGS"_qs, result);
    } else {
        // A refused message has a word here, which fails: it stays in the queue.
        const double reference = toNumber(result);
        const bool inRange = reference >= 0 && reference <= kHighestReference;
        row.setValue(u"CMGS"_qs, inRange ? result + u":OK"_qs : result);
        row.setValue(u"TimeReceived"_qs, u"NA"_qs);
        row.setValue(u"TimeSent"_qs, u"NA"_qs);
        row.setValue(u"ReceivedStatus"_qs, u"NA"_qs);
    }
    row.update();
}

void OutboundQueue::markUser(const QString &text, const QString &recipient)
{
    const QString shortNumber = numberIn(text);
    Recordset &catalogue = recordsets_.rsKatalog;
    const QString user = catalogue.findFirst(u"BrukerKort"_qs, shortNumber)
                             ? catalogue.text(u"Bruker"_qs)
                             : module_.dialPrefix() + shortNumber;
    Recordset &users = recordsets_.rsBrukereAll;
    if (!users.findFirst(u"KeyBruker"_qs, user, {{u"keynummer"_qs, recipient}})) {
        return;
    }
    const QString command = left(text, 2);
    if (same(command, u"I "_qs)) {
        users.setValue(u"Status"_qs, u"Registrerer"_qs);
    } else if (same(command, u"U "_qs)) {
        users.setValue(u"Status"_qs, u"Sletter"_qs);
    }
    users.update();
}
