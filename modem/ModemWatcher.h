#pragma once

#include "modem/ModemFlags.h"
#include "platform/Clock.h"
#include "platform/Tries.h"

#include <QString>

#include <functional>
#include <optional>

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
///
/// One listing at a time. Another one, asked for while the first is on its way, would name its
/// records again, behind their deletion: they would be filed twice, and whatever has come to their
/// places meanwhile would be deleted unread.
class ModemWatcher {
public:
    ModemWatcher(const Clock &clock, Module1 &module, ModemFlags &flags, Recordsets &recordsets,
                 ModemLine &line, ModemResponse &response, OutboundQueue &queue, SendPace &pace,
                 Timer &TimerCom, ModemView &view, Operator &person);
    ~ModemWatcher();
    ModemWatcher(const ModemWatcher &) = delete;
    ModemWatcher &operator=(const ModemWatcher &) = delete;

    /// What stands in higher folders, set when the program is put together: the feeder that turns
    /// waiting periods into queued commands, and the interpreter of a listed message.
    std::function<void()> StartNyBruker;
    std::function<void()> Read_SMS_MessageTEXT;
    /// The initialisation of a modem that has forgotten its settings; whether it succeeded, which
    /// clears HasForgotten.
    std::function<bool()> SetUpAgain;

    /// The interpreter has seen the end of the listing, or has given it up.
    void listingEnded();
    /// It has fallen silent: the rest may come yet.
    void listingRests()
    {
        listingHeard_ = clock_.elapsed();
        restIsComing_ = true;
    }

    void timerComTick();
    void timerSendTick();

private:
    QString takeLine();
    bool lineIsFree() const;
    bool awaitsListing() const;
    void lookForSigns(const QString &line);
    bool startAnew();
    void sendFirst();
    void tellLostPort();
    void responseChanged();
    void watch(const QString &text);
    void notified(const QString &panelText);
    void listed(const QString &text);
    void requestListing();

    ///             asked for           a notice
    ///      None ────────────► Asked ──────────────► AskedAndOwed
    ///       ▲ ▲                 │ its end                │ its end
    ///       │ └─────────────────┘                        ▼
    ///       └──────────── (at the next tick) ─────────── Owed
    ///
    /// What is not ended within kListingTimeOut is given up at the next tick; each line of it and
    /// listingRests begin that time anew. A notice inside the interpreter leads from None to Owed,
    /// another one behind it straight to Asked.
    enum class Listing { None, Asked, AskedAndOwed, Owed };

    const Clock &clock_;
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
    Listing listing_ = Listing::None;
    milliseconds listingAsked_{0};
    milliseconds listingHeard_{0}; ///< its last line
    bool restIsComing_ = false; ///< of a listing that was given up: texts and headers, in any order
    milliseconds takingSince_{0}; ///< by the owner of the line, if it is this
    int sendTicks_ = 0;
    std::optional<milliseconds> startedAnew_;
    int highPlaceTold_ = -1;      ///< the initialisation behind which the operator was told of one
    bool listsHighPlace_ = false; ///< the listing that was asked for last
    Tries refresh_;               ///< of the sets: a file that cannot be read is told of once
    Tries send_;                  ///< likewise a file that takes no result
    bool lossTold_ = false;       ///< the operator has been told that the port is gone
};
