#include "modem/ModemInitialiser.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLine.h"
#include "modem/ModemView.h"
#include "modem/PassOn.h"
#include "modem/SendPace.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <utility>

namespace {

constexpr int kAttempts = 5;
constexpr int kInboundPanel = 2;
constexpr milliseconds kPause = 50ms;
constexpr milliseconds kFirstListing = 10000ms;
constexpr int kMostUnreadLines = 500; ///< of a modem that does not cease to talk

constexpr int kStorageReads = 5;
constexpr milliseconds kStoragePause = 2000ms;

enum class OnNoOk { GoOn, Retry };
enum class Reading { Ok, FirstStorage, SecondStorage, Manufacturer, Model, SerialNumber };

QString words(const char *text)
{
    return QCoreApplication::translate("ModemInitialiser", text);
}

// The words of this box are no text of the screen's language.
QString notFoundText()
{
    return u"\r******\rModem not found!!!\rTry another COM-port and make sure modem is installed, "
           u"and SIM card ready with PIN-code disabled"_qs;
}

} // namespace

struct ModemInitialiser::Step {
    QStringView command;
    QStringView commandWithReports; ///< with SmsReportOn; empty for the same
    milliseconds pauseBefore;       ///< between the command and the reading
    Reading reading;
    OnNoOk onNoOk;
    milliseconds pauseBehind;
};

void writeModemRow(Recordset &rsModem, const ModemRow &row)
{
    rsModem.moveFirst();
    rsModem.setValue(u"IMEICODE"_qs, row.IMEICODE);
    rsModem.setValue(u"ModemManufacturer"_qs, row.ModemManufacturer);
    rsModem.setValue(u"ModemName"_qs, row.ModemName);
    rsModem.setValue(u"ModemStatus"_qs, row.ModemStatus);
    rsModem.setValue(u"ModemOwner"_qs, row.ModemOwner);
    rsModem.update();
}

ModemInitialiser::ModemInitialiser(Clock &clock, Module1 &module, ModemFlags &flags,
                                   Recordsets &recordsets, ModemLine &line, SendPace &pace,
                                   Timer &TimerCom, ModemView &view, Operator &person)
    : clock_(clock),
      module_(module),
      flags_(flags),
      recordsets_(recordsets),
      line_(line),
      pace_(pace),
      timerCom_(TimerCom),
      view_(view),
      operator_(person)
{
}

void ModemInitialiser::InitModem()
{
    // A failure of the line leaves ModemInitRunning set, as a failed search does: the timers keep
    // off a line that does not work until another initialisation gets through.
    shown(operator_, {}, [&] {
        flags_.ModemInitRunning = true;
        if (!line_.isOpen()) {
            noLine();
        } else if (const std::optional<Identity> modem = search()) {
            found(*modem);
        } else {
            notFound();
        }
    });
    passOnTheEnd(clock_);
}

bool ModemInitialiser::setUpAgain()
{
    flags_.ModemInitRunning = true;
    std::optional<Identity> modem;
    bool hasLine = false; // the watcher tells of a port that is gone
    kept([&] {
        modem = search();
        hasLine = true;
    });
    flags_.ModemInitRunning = false; // or nobody would hear it come back
    passOnTheEnd(clock_);
    if (modem) {
        kept([&] { found(*modem); });
    } else if (hasLine && !std::exchange(isLossTold_, true)) {
        operator_.messageBox(notFoundText(), {}, Buttons::Ok);
    }
    return modem.has_value();
}

/// Has the line for the dialogue, and no longer: a box about its outcome may stand for hours.
std::optional<ModemInitialiser::Identity> ModemInitialiser::search()
{
    ++flags_.initialisations;
    const LineOwner::Turn turn(flags_.owner, LineOwner::Who::Initialiser);
    // A click may come while the answer to another command lies unread: its "OK" would pass for
    // the first of ours, and each answer behind it for that of the command before.
    for (int lines = 0; lines < kMostUnreadLines && line_.hasLine(); ++lines) {
        line_.ReadModemLine();
    }
    line_.takeSigns(); // of before
    QString outcome;
    const auto tell = qScopeGuard([&] { view_.setPanel(kInboundPanel, outcome); });
    for (int attempts = 1; attempts <= kAttempts; ++attempts) {
        view_.setPanel(kInboundPanel,
                       words("Venter på modemet: forsøk %1 av %2").arg(attempts).arg(kAttempts));
        Identity identity;
        if (attempt(identity) && (!identity.hasStarted || attempts == kAttempts)) {
            return identity;
        }
    }
    outcome = words("Modemet svarer ikke");
    return std::nullopt;
}

bool ModemInitialiser::attempt(Identity &identity)
{
    using enum OnNoOk;
    // The storages: "MT" is asked for first and "SM" behind it, so on a modem that takes both the
    // SIM wins. Message parameters: 17 is a plain submission with a relative validity period, 49
    // the same with a status report; 167 is 24 hours (3GPP TS 23.040, 9.2.3.12).
    static constexpr Step kSteps[] = {
        {u"AT", {}, 0ms, Reading::Ok, GoOn, 10ms},
        {u"ATV1", {}, 0ms, Reading::Ok, GoOn, 10ms},
        {u"AT", {}, 0ms, Reading::Ok, Retry, 10ms + kPause},
        {u"AT&F0", {}, 0ms, Reading::Ok, Retry, kPause},
        {u"AT\\Q0", {}, 0ms, Reading::Ok, Retry, kPause},
        {u"ATE0", {}, kPause, Reading::Ok, Retry, kPause},
        {u"AT+CPMS=\"MT\",\"MT\",\"MT\"", {}, 200ms, Reading::FirstStorage, GoOn, kPause},
        {u"AT+CPMS=\"SM\",\"SM\",\"SM\"", {}, 200ms, Reading::SecondStorage, GoOn, kPause},
        {u"AT+CLIP=1", {}, 0ms, Reading::Ok, Retry, kPause},
        {u"AT+CMGF=1", {}, 0ms, Reading::Ok, Retry, kPause},
        {u"AT+CSMP=17,167,0,0", u"AT+CSMP=49,167,0,0", 0ms, Reading::Ok, Retry, kPause},
        {u"AT+CNMI=1,1", u"AT+CNMI=1,1,0,2,1", 0ms, Reading::Ok, Retry, kPause},
        {u"AT&W", {}, 0ms, Reading::Ok, Retry, kPause},
        {u"AT+CGMI", {}, 0ms, Reading::Manufacturer, Retry, kPause},
        {u"AT+CGMM", {}, 0ms, Reading::Model, Retry, kPause},
        {u"AT+GSN", {}, kPause, Reading::SerialNumber, Retry, 0ms},
    };

    QString storageLine;
    for (const Step &step : kSteps) {
        if (step.command == u"AT&F0") {
            identity.hasStarted = false; // until here it was told nothing that it could forget
        }
        if (!run(step, identity, storageLine) && step.onNoOk == Retry) {
            return false;
        }
        clock_.sleep(step.pauseBehind);
    }
    return true;
}

bool ModemInitialiser::run(const Step &step, Identity &identity, QString &storageLine)
{
    const bool withReports = module_.SmsReportOn && !step.commandWithReports.isEmpty();
    line_.SendData((withReports ? step.commandWithReports : step.command).toString() + u'\r');
    clock_.sleep(step.pauseBefore);
    switch (step.reading) {
    case Reading::Ok:
        break;
    case Reading::FirstStorage:
        storageLine = line_.ReadModemLine();
        waitForStorage(storageLine);
        break;
    case Reading::SecondStorage:
        // It goes on with the line of the first: a modem that took that one is not waited for.
        waitForStorage(storageLine);
        break;
    case Reading::Manufacturer:
        identity.manufacturer = line_.ReadModemLine();
        break;
    case Reading::Model:
        identity.model = line_.ReadModemLine();
        break;
    case Reading::SerialNumber:
        identity.serialNumber = line_.ReadModemLine();
        break;
    }
    const bool isOk = line_.WaitForModemOK();
    const auto [echo, boot] = line_.takeSigns();
    identity.echoes = echo;
    identity.hasStarted = identity.hasStarted || boot;
    return isOk;
}

void ModemInitialiser::waitForStorage(QString &storageLine)
{
    for (int reads = 0; reads < kStorageReads && !holds(storageLine, u"CPMS"_qs); ++reads) {
        clock_.sleep(kStoragePause);
        storageLine = line_.ReadModemLine();
    }
}

void ModemInitialiser::found(const Identity &identity)
{
    flags_.EchoIsUsual = identity.echoes;
    flags_.HasForgotten = false;
    isLossTold_ = false;
    module_.ModemReady = true;
    timerCom_.setEnabled(true);
    pace_.restart(kFirstListing);
    searchEnded(); // a file that cannot be written must not keep the timers off the modem

    Recordset &rsModem = recordsets_.rsModem;
    rsModem.requery();
    rsModem.moveFirst();
    const auto writeUnlessBlank = [&](const QString &column, const QString &value) {
        if (!value.trimmed().isEmpty()) {
            rsModem.setValue(column, value);
        }
    };
    writeUnlessBlank(u"IMEICODE"_qs, identity.serialNumber);
    writeUnlessBlank(u"ModemManufacturer"_qs, identity.manufacturer);
    writeUnlessBlank(u"ModemName"_qs, identity.model);
    rsModem.setValue(u"ModemStatus"_qs, true);
    rsModem.setValue(u"ModemOwner"_qs, module_.LoginComputer);
    rsModem.update();
    recordsets_.OpenRecordsets();
}

void ModemInitialiser::notFound()
{
    operator_.messageBox(notFoundText(), {}, Buttons::Ok);
    Recordset &rsModem = recordsets_.rsModem;
    if (module_.ModemReady || same(rsModem.text(u"ModemOwner"_qs), module_.LoginComputer)) {
        writeModemRow(rsModem, {.ModemOwner = u"None"_qs});
        if (recordsets_.display) {
            recordsets_.display(); // the sets stay as they are, but the screen must not lie
        }
    }
    module_.ModemReady = false;
    // ModemInitRunning stays set on this path: it keeps TimerCom off a line that has no modem
    // until another initialisation ends well or finds no line. The pointer and the recordsets
    // stay as they are, too.
}

void ModemInitialiser::noLine()
{
    timerCom_.setEnabled(false);
    ++flags_.initialisations;
    view_.setPanel(kInboundPanel, {}); // nothing comes in
    searchEnded();
    if (std::exchange(module_.ModemReady, false)) {
        writeModemRow(recordsets_.rsModem, {.ModemManufacturer = u"No Modem"_qs});
    }
    recordsets_.OpenRecordsets();
}

void ModemInitialiser::searchEnded()
{
    flags_.ModemInitRunning = false;
    operator_.setBusy(&module_, false);
}
