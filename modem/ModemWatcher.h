#pragma once

#include "modem/ModemFlags.h"
#include "platform/Clock.h"

#include <QString>

#include <functional>

class ModemLine;
class ModemResponse;
class ModemView;
class Operator;
class OutboundQueue;
class Recordsets;
class SendPace;
struct Module1;

/// The main loop around the modem: one line a second goes from the line into ModemResponse, whose
/// change drives everything; a second timer feeds the queue, sends and asks for the listing.
class ModemWatcher {
public:
    ModemWatcher(Module1 &module, ModemFlags &flags, Recordsets &recordsets, ModemLine &line,
                 ModemResponse &response, OutboundQueue &queue, SendPace &pace, Timer &TimerCom,
                 ModemView &view, Operator &person);
    ~ModemWatcher();
    ModemWatcher(const ModemWatcher &) = delete;
    ModemWatcher &operator=(const ModemWatcher &) = delete;

    /// What stands in higher folders, set when the program is put together: the feeder that turns
    /// waiting periods into queued commands, and the interpreter of a listed message.
    std::function<void()> StartNyBruker;
    std::function<void()> Read_SMS_MessageTEXT;

    void timerComTick();
    void timerSendTick();

private:
    QString takeLine();
    void tellLostPort();
    void responseChanged();
    void watch(const QString &text);
    void notified(const QString &panelText);
    void listed(const QString &text);
    void requestListing();

    Module1 &module_;
    ModemFlags &flags_;
    Recordsets &recordsets_;
    ModemLine &line_;
    ModemResponse &response_;
    OutboundQueue &queue_;
    SendPace &pace_;
    Timer &timerCom_;
    ModemView &view_;
    Operator &operator_;
    bool takingLine_ = false;
    bool lossTold_ = false;       ///< the operator has been told that the port is gone
    bool listingAwaited_ = false; ///< asked for, and not a line of it has come
    bool listingOwed_ = false;    ///< a notice came meanwhile
    bool interpreting_ = false;   ///< Read_SMS_MessageTEXT stands on the stack
};
