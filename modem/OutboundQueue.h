#pragma once

#include "modem/ModemFlags.h"

#include <QDateTime>
#include <QHash>
#include <QString>

#include <functional>
#include <vector>

class Clock;
class ModemView;
class Recordset;
class Recordsets;
class SendPace;
class SmsSubmitter;
class Timer;
struct Module1;

/// A message for the queue, and how it meets a waiting one of the same text.
struct OutboundSms {
    /// Whose waiting row of the same text is taken over, instead of a second one being added.
    enum class TakesOver { Anybodys, SameRecipients, Nobodys };
    /// When TimerSEND_SMS is hurried, unless QueuePending.
    enum class Hurry { Always, ForNewRow, Never };

    QString recipient;      ///< full number, into TilNummer
    QString recipientShort; ///< into TilNummerKort
    QString text;
    QString Etternavn; ///< written when not empty
    QString Fornavn;   ///< written when not empty
    QDate date;        ///< into Dato and DatoLNG; the queue sends in this order
    QString state = QStringLiteral("UNSENT"); ///< into CMGS
    TakesOver takesOver = TakesOver::Anybodys;
    Hurry hurry = Hurry::Always;

    // The four forms in use, which differ on purpose; side by side in OutboundQueue.cpp.

    /// A free text to anybody.
    static OutboundSms freeText(const QString &recipient, const QString &text,
                                const QString &Etternavn, const QString &Fornavn,
                                const QDate &today);
    /// The command that registers or deletes a user on a door. The day is the first of the user's
    /// period; the state is "UNSENT", or "SLETTET" to have the row swept away.
    static OutboundSms doorCommand(const QString &door, const QString &doorName,
                                   const QString &text, const QDate &day, const QString &state);
    /// A command of the door configuration screen.
    static OutboundSms doorSetting(const QString &door, const QString &doorName,
                                   const QString &text, const QDate &today);
    /// The question for a door's log.
    static OutboundSms logRequest(const QString &door, const QString &doorName, const QString &text,
                                  const QDate &today);
};

/// The one way into a queue: the shared rsSmsOutbox, or a screen's own set of SMS_Sent with the
/// same columns. Leaves the pace alone; gives true when a row was added, false when a waiting one
/// was taken over.
/// @throws RuntimeFailure when the text holds a single quote and is to be looked for, or the row
/// cannot be written.
bool queueSms(Recordset &outbox, const OutboundSms &sms);
/// The same with the hurry that the message asks for.
void queueSms(Recordset &outbox, SendPace &pace, const OutboundSms &sms);

/// The rows of SMS_Sent that wait ("UNSENT"), and the way out of them.
/// No screen ever talks to the modem about a message: it puts a row here.
class OutboundQueue {
public:
    OutboundQueue(Clock &clock, Module1 &module, ModemFlags &flags, Recordsets &recordsets,
                  SmsSubmitter &submitter, SendPace &pace, Timer &timerCom);

    /// OutboundSms::freeText, dated today.
    void QueueOutboundSms(const QString &recipient, const QString &text, const QString &Etternavn,
                          const QString &Fornavn);
    /// OutboundSms::doorCommand.
    void queueDoorCommand(const QString &door, const QString &doorName, const QString &command,
                          const QDate &date, const QString &state);
    /// queueSms() into rsSmsOutbox.
    void queue(const OutboundSms &sms);

    /// Hands at most one waiting row to the modem; what happened to it stands in its CMGS. As long
    /// as the file doesn't take that, no other row of it is handed on: each call only tries to
    /// write it. For a file that is not in use just now it waits.
    /// @throws RuntimeFailure when such a call fails; nothing else makes it fail.
    /// @throws ProgramEnds when the program ends meanwhile.
    void SendQueuedSms();
    /// Calls this once, behind the attempt to hand a message on that is under way, or at once when
    /// there is none. For what would take the modem's answer away, have its own commands taken for
    /// the text, or end the program.
    void whenIdle(std::function<void()> next);
    /// Writes what became of a message of the file in use that the network has taken, where that
    /// could not be written at once; without one it does nothing.
    /// @throws RuntimeFailure when it cannot be written now either.
    void writeOutcome();
    /// When this run handed a message of the file in use to the modem last, by its row; an invalid
    /// time for all others, since the file keeps it only where a delivery report has come.
    QDateTime sentAt(qint64 row) const;
    /// What became of a message has been written, and its user's state with it.
    std::function<void()> outcomeWritten = [] {};

private:
    struct Submission {
        QString file;
        qint64 row = 0;
        QString text;
        QString recipient;
        QString result = {}; ///< LastCmgsResult behind it
    };

    std::vector<Submission>::iterator unwritten();
    void sendFirst();
    void settle(const Submission &sms);
    bool isStillQueued(const Submission &sms);
    void writeResult(const QString &result);
    void markUser(const QString &text, const QString &recipient);

    Clock &clock_;
    Module1 &module_;
    ModemFlags &flags_;
    Recordsets &recordsets_;
    SmsSubmitter &submitter_;
    SendPace &pace_;
    Timer &timerCom_;
    QHash<std::pair<QString, qint64>, QDateTime> sentAt_; ///< by file and row
    std::vector<Submission> accepted_; ///< by the network, but their results are not written yet
    std::vector<std::function<void()>> next_; ///< once it is idle
};
