#include "modem/SmsSubmitter.h"

#include "data/Module1.h"
#include "modem/CharacterTables.h"
#include "modem/ModemLine.h"
#include "modem/ModemView.h"
#include "modem/ModemWords.h"
#include "modem/PassOn.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QScopeGuard>

namespace {

constexpr int kAttempts = 5;
constexpr milliseconds kBetweenAttempts = 2000ms;
constexpr milliseconds kPromptTimeOut = 2000ms;
constexpr milliseconds kResultTimeOut = 20000ms;
constexpr int kMostLateLines = 100;

constexpr char16_t kEndOfMessage = 26;
constexpr int kOutboundPanel = 3;

[[noreturn]] void refuseRecipient()
{
    throw RuntimeFailure(
        QCoreApplication::translate("SmsSubmitter", "Mottakeren er ikke et telefonnummer"));
}

/// @throws RuntimeFailure when anything but digits and a "+" in front stands in the number.
bool isAboveZero(const QString &Number)
{
    static const QRegularExpression kNumber(u"^ *\\+?[0-9]+ *$"_qs,
                                            QRegularExpression::DontCaptureOption);
    if (!kNumber.match(Number).hasMatch()) {
        refuseRecipient();
    }
    return toNumber(Number) > 0;
}

} // namespace

void checkRecipient(const QString &Number)
{
    if (!isAboveZero(Number)) {
        refuseRecipient();
    }
}

SmsSubmitter::SmsSubmitter(Clock &clock, Module1 &module, ModemFlags &flags, ModemLine &line,
                           Timer &TimerCom, ModemView &view, const CharacterTables &tables)
    : clock_(clock),
      module_(module),
      flags_(flags),
      line_(line),
      timerCom_(TimerCom),
      view_(view),
      tables_(tables)
{
}

void SmsSubmitter::SendSms(const QString &Text, const QString &Number)
{
    // No other reader may take the modem's lines meanwhile.
    timerCom_.setEnabled(false);
    module_.LastCmgsResult.clear();
    wasCutShort_ = false;
    kept([&] { submit(Text, Number); });
    timerCom_.setEnabled(true);
    passOnTheEnd(clock_);
}

void SmsSubmitter::submit(const QString &Text, const QString &Number)
{
    if (!module_.ModemReady || !isAboveZero(Number)) {
        return;
    }
    view_.setPanel(kOutboundPanel, u"Sender SMS"_qs);
    if (Text.isEmpty()) {
        return;
    }
    const QString message = translated(Text);
    for (int attempts = 0; attempts < kAttempts; ++attempts) {
        transmit(message, Number);
        // Without regard to case: a time-out, "Error", is tried again just as a refusal is.
        if (!holds(module_.LastCmgsResult, u"ERROR"_qs)) {
            return;
        }
        if (!flags_.QueueAwaited) {
            clock_.sleep(kBetweenAttempts);
        }
        if (flags_.QueueAwaited) {
            wasCutShort_ = attempts + 1 < kAttempts;
            return;
        }
    }
}

QString SmsSubmitter::translated(const QString &Text) const
{
    const quint8 length = byteOf(static_cast<int>(Text.size()));
    QString message;
    message.reserve(length);
    for (const QChar character : Text) {
        message += QChar(static_cast<char16_t>(tables_.out(windows1252Code(character))));
    }
    return message;
}

void SmsSubmitter::transmit(const QString &message, const QString &Number)
{
    line_.SendData(u"AT+CMGS="_qs + Number.trimmed() + u'\r'); // files hold padded numbers
    const milliseconds start = clock_.elapsed();
    while (!holds(line_.ReadModemPrompt(), u">"_qs) && clock_.elapsed() - start <= kPromptTimeOut) {
    }
    // Sent without a prompt too: the modem then takes it for a command, and the outcome comes
    // from that.
    line_.SendData(message);
    line_.SendData(QChar(kEndOfMessage));
    Get_CMGS();
}

void SmsSubmitter::Get_CMGS()
{
    module_.LastCmgsResult.clear();
    flags_.WaitingForCmgs = true;
    const auto settled = qScopeGuard([&] { flags_.WaitingForCmgs = false; });
    readResult();
    line_.WaitForModemOK();
    if (module_.LastCmgsResult.isEmpty()) {
        module_.LastCmgsResult = u"Error"_qs;
        view_.setPanel(kOutboundPanel, u"SMS Sending TIMEOUT"_qs);
    }
}

void SmsSubmitter::readResult()
{
    const milliseconds start = clock_.elapsed();
    // A box may have held the reading up: what has come meanwhile counts, or the same message would
    // go out again.
    const auto isInTime = [&] { return clock_.elapsed() - start < kResultTimeOut; };
    for (int late = 0; isInTime() || (line_.hasLine() && late++ < kMostLateLines);) {
        const QString line = line_.ReadModemLine();
        const std::optional<QString> reference = answerIn(line, u"+CMGS"_qs);
        if (reference) {
            // Where lines end in line feeds alone the final "OK" stands in the same line.
            module_.LastCmgsResult = reference->section(u'\n', 0, 0);
            view_.setPanel(kOutboundPanel, u"SMS "_qs + module_.LastCmgsResult + u" SENDT"_qs);
        }
        // "+CMS ERROR: 500" as well.
        const bool refused = holds(line, u"Error"_qs);
        if (refused) {
            module_.LastCmgsResult = u"ERROR"_qs;
            view_.setPanel(kOutboundPanel, u"SMS SENDEFEIL"_qs);
        }
        if (reference || refused) {
            return;
        }
    }
}
