#pragma once

#include "modem/ModemFlags.h"

#include <QDate>
#include <QString>

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
    QString recipient;      ///< full number, into TilNummer
    QString recipientShort; ///< into TilNummerKort
    QString text;
    QString Etternavn; ///< written when not empty
    QString Fornavn;   ///< written when not empty
    QDate date;        ///< into Dato and DatoLNG; the queue sends in this order
    QString state = QStringLiteral("UNSENT"); ///< into CMGS
    /// A waiting row of the same text is taken over only when it goes to the same recipient.
    bool sameRecipientOnly = false;
    /// TimerSEND_SMS is hurried first, unless QueuePending.
    bool hurry = true;
};

/// The rows of SMS_Sent that wait ("UNSENT"), and the way out of them.
/// No screen ever talks to the modem about a message: it puts a row here.
class OutboundQueue {
public:
    OutboundQueue(Clock &clock, Module1 &module, ModemFlags &flags, Recordsets &recordsets,
                  SmsSubmitter &submitter, SendPace &pace, Timer &timerCom);

    /// A free text to anybody, dated today: a waiting row of the same wording is taken over,
    /// whoever it was for.
    void QueueOutboundSms(const QString &recipient, const QString &text, const QString &Etternavn,
                          const QString &Fornavn);
    /// A command to a door: a waiting row is refreshed only for the same door. It leaves the pace
    /// alone. The state is "UNSENT", or "SLETTET" to have the row swept away.
    void queueDoorCommand(const QString &door, const QString &doorName, const QString &command,
                          const QDate &date, const QString &state);
    /// The core of both.
    /// @throws RuntimeFailure when the text holds a single quote, or the row cannot be written.
    void queue(const OutboundSms &sms);

    /// Hands at most one waiting row to the modem. It never fails; what happened to the row stands
    /// in its CMGS.
    /// @throws ProgramEnds when the program ends meanwhile.
    void SendQueuedSms();

private:
    void sendFirst();
    void writeResult(Recordset &row);
    void markUser(const QString &text, const QString &recipient);

    Clock &clock_;
    Module1 &module_;
    ModemFlags &flags_;
    Recordsets &recordsets_;
    SmsSubmitter &submitter_;
    SendPace &pace_;
    Timer &timerCom_;
};
