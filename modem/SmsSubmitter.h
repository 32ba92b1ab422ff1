#pragma once

#include "modem/ModemFlags.h"
#include "platform/Clock.h"

#include <QString>

class CharacterTables;
class ModemLine;
class ModemView;
struct Module1;

/// For what goes into the queue: a row that nobody can be sent would stay at its head for ever.
/// @throws RuntimeFailure when the number is no telephone number.
void checkRecipient(const QString &Number);

/// Hands one message to the modem in text mode (AT+CMGS of 3GPP TS 27.005, 3.5.1) and leaves the
/// outcome in Module1::LastCmgsResult: empty when nothing was tried, the message reference,
/// "ERROR" when the modem refused, "Error" when it gave no answer.
class SmsSubmitter {
public:
    SmsSubmitter(Clock &clock, Module1 &module, ModemFlags &flags, ModemLine &line, Timer &TimerCom,
                 ModemView &view, const CharacterTables &tables);

    /// At most five attempts, each of up to about half a minute; events run inside. Fails in
    /// silence: LastCmgsResult then stays as it stood, and is empty when nothing was tried.
    /// @param Text at most 255 characters of Windows-1252
    /// @param Number digits, "+" in front allowed
    /// @throws ProgramEnds when the program ends meanwhile.
    void SendSms(const QString &Text, const QString &Number);
    /// Whether the last one was left with attempts to go, since somebody waits for the queue.
    bool wasCutShort() const { return wasCutShort_; }
    /// Waits up to 20 s for the outcome of a submission.
    /// @throws RuntimeFailure when the line is gone.
    void Get_CMGS();

private:
    void submit(const QString &Text, const QString &Number);
    void transmit(const QString &message, const QString &Number);
    void readResult();
    QString translated(const QString &Text) const;

    Clock &clock_;
    Module1 &module_;
    ModemFlags &flags_;
    ModemLine &line_;
    Timer &timerCom_;
    ModemView &view_;
    const CharacterTables &tables_;
    bool wasCutShort_ = false;
};
