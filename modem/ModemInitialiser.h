#pragma once

#include "modem/ModemFlags.h"
#include "platform/Clock.h"

#include <QString>

#include <optional>

class ModemLine;
class ModemView;
class Operator;
class Recordset;
class Recordsets;
class SendPace;
struct Module1;

/// The row of Modem: which modem is in use, and by whom.
struct ModemRow {
    QString IMEICODE = QStringLiteral("0");
    QString ModemManufacturer = QStringLiteral(" ");
    QString ModemName = QStringLiteral(" ");
    bool ModemStatus = false;
    QString ModemOwner = QStringLiteral("?");
};

/// Writes all five columns into the first row of rsModem.
/// @throws RuntimeFailure when there is no row, or it cannot be written.
void writeModemRow(Recordset &rsModem, const ModemRow &row);

/// Brings a GSM modem into the state that the rest of the program expects: text mode, messages on
/// the SIM, notification of new ones, delivery reports as Module1::SmsReportOn says (AT commands
/// of 3GPP TS 27.005 and 27.007). Takes seconds, and minutes with a modem that is mute: the second
/// panel tells the attempt. Events run inside.
class ModemInitialiser {
public:
    ModemInitialiser(Clock &clock, Module1 &module, ModemFlags &flags, Recordsets &recordsets,
                     ModemLine &line, SendPace &pace, Timer &TimerCom, ModemView &view,
                     Operator &person);

    /// Sets ModemReady, starts or stops the two timers and writes the Modem row. A failure shows
    /// its description and ends it with ModemReady as it was. A click may start a second one
    /// inside the first.
    /// @throws ProgramEnds when the program ends meanwhile.
    void InitModem();
    /// The same dialogue for a modem that has forgotten its settings; whether it answered. It may
    /// be starting still: one that does not answer stays in use, and the operator is told once.
    /// @throws ProgramEnds when the program ends meanwhile.
    bool setUpAgain();

private:
    /// What the modem says of itself.
    struct Identity {
        QString manufacturer;
        QString model;
        QString serialNumber;
        bool echoes = false;     ///< though it was told not to
        bool hasStarted = false; ///< in the middle, and forgotten the steps before
    };
    struct Step;

    std::optional<Identity> search();
    bool attempt(Identity &identity);
    bool run(const Step &step, Identity &identity, QString &storageLine);
    void waitForStorage(QString &storageLine);
    void found(const Identity &identity);
    void notFound();
    void noLine();
    void searchEnded();

    Clock &clock_;
    Module1 &module_;
    ModemFlags &flags_;
    Recordsets &recordsets_;
    ModemLine &line_;
    SendPace &pace_;
    Timer &timerCom_;
    ModemView &view_;
    Operator &operator_;
    bool isLossTold_ = false; ///< that a modem which had to be set up again does not answer
};
