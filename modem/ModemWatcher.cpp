#include "modem/ModemWatcher.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLine.h"
#include "modem/ModemResponse.h"
#include "modem/ModemView.h"
#include "modem/ModemWords.h"
#include "modem/OutboundQueue.h"
#include "modem/PassOn.h"
#include "modem/SendPace.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <utility>

namespace {

constexpr int kInboundPanel = 2;
constexpr milliseconds kAfterEvent = 2000ms;
// At the slowest pace no listing is asked for, until an event quickens it.
constexpr milliseconds kNoListingFrom = 59000ms;
// At that pace it is asked for so often all the same: a notice may have been lost.
constexpr milliseconds kIdleListing = 15min;
constexpr milliseconds kBetweenStarts = 1min;
// Behind so long a silence the rest of a listing does not come any more.
constexpr milliseconds kListingTimeOut = 20'000ms; ///< behind the last line
constexpr milliseconds kLongestListing = 10min;    ///< whatever the modem has to tell
// No read takes so long, unless a box holds it up that was opened inside it.
constexpr milliseconds kHeldUp = 2500ms;
constexpr int kLongestIndex = 7;
constexpr int kHighestPlace = 255;
// Two on each tick: a file that another PC holds for a moment is no news.
constexpr int kTriesOfFile = 3;

enum class Notice { None, Message, Report };

Notice noticeIn(const QString &text)
{
    if (holds(text, u"+CMTI"_qs)) {
        return Notice::Message;
    }
    return answerIn(text, u"+CDSI"_qs) ? Notice::Report : Notice::None;
}

} // namespace

ModemWatcher::ModemWatcher(const Clock &clock, Module1 &module, ModemFlags &flags,
                           Recordsets &recordsets, ModemLine &line, ModemResponse &response,
                           OutboundQueue &queue, SendPace &pace, Timer &TimerCom, ModemView &view,
                           Operator &person)
    : clock_(clock),
      module_(module),
      flags_(flags),
      recordsets_(recordsets),
      line_(line),
      response_(response),
      queue_(queue),
      pace_(pace),
      timerCom_(TimerCom),
      view_(view),
      operator_(person),
      refresh_(person, kTriesOfFile),
      send_(person, kTriesOfFile)
{
    response_.onChange([this] { responseChanged(); });
}

ModemWatcher::~ModemWatcher()
{
    response_.onChange({});
}

void ModemWatcher::timerComTick()
{
    shown(operator_, {}, [&] {
        const QString text = takeLine();
        if (!text.isEmpty() && !isUnsolicited(text)) {
            listingHeard_ = clock_.elapsed();
        }
        if (isFinalOk(text) || isFinalError(text)) {
            if (isFinalOk(text) && awaitsListing() && !listsHighPlace_) {
                highPlaceTold_ = -1; // they are gone: the next one is news
            }
            listingEnded();
        }
        lookForSigns(text);
        if (!text.isEmpty()) {
            response_.setText(text);
        }
    });
}

bool ModemWatcher::lineIsFree() const
{
    const LineOwner::Who who = flags_.owner.who();
    // A line that comes slowly keeps a read waiting for longer than a tick, and must not be cut
    // short. But a box that a click has opened inside the read may stand for hours.
    const bool isHeldUp =
        who == LineOwner::Who::Watcher && clock_.elapsed() - takingSince_ > kHeldUp;
    return who == LineOwner::Who::Nobody || isHeldUp;
}

QString ModemWatcher::takeLine()
{
    if (!lineIsFree() || !module_.ModemReady || flags_.QueueRunning || flags_.ModemInitRunning) {
        return {};
    }
    if (module_.ActiveComPort != kNetworkModem && !line_.isOpen()) {
        tellLostPort();
        return {};
    }
    const LineOwner::Turn turn(flags_.owner, LineOwner::Who::Watcher);
    const auto back = qScopeGuard([this, since = takingSince_] { takingSince_ = since; });
    takingSince_ = clock_.elapsed();
    lossTold_ = true; // by the failure itself, if the port goes now
    const QString text = line_.hasLine() ? line_.ReadWholeLine() : QString();
    lossTold_ = false;
    return text;
}

void ModemWatcher::tellLostPort()
{
    // Whoever used the port when it went may have kept silent about it (the queue and the
    // interpreter do), and a closed port has no characters that would ever fail again.
    if (!std::exchange(lossTold_, true)) {
        throw RuntimeFailure(QCoreApplication::translate(
            "ModemWatcher", "Forbindelsen med modemet er brutt. Velg COM-porten på nytt."));
    }
}

/// A modem that has started by itself echoes, lists in PDU mode and tells of no message: without
/// another initialisation it would be deaf for good.
void ModemWatcher::lookForSigns(const QString &line)
{
    const auto [echo, boot] = line_.takeSigns();
    if ((echo && !flags_.EchoIsUsual) || boot || isPduHeader(line)) {
        flags_.HasForgotten = true;
    }
    if (boot) {
        listingEnded(); // nothing more will come of it
    }
}

bool ModemWatcher::startAnew()
{
    if (!flags_.HasForgotten) {
        return false;
    }
    if (startedAnew_ && clock_.elapsed() - *startedAnew_ < kBetweenStarts) {
        return true; // until then it is sent nothing that it would not understand
    }
    startedAnew_ = clock_.elapsed();
    view_.setPanel(kInboundPanel,
                   QCoreApplication::translate("ModemWatcher", "Modemet settes opp på nytt"));
    kept([this] {
        if (SetUpAgain()) {
            view_.setPanel(kInboundPanel, u"Klar for innkommende SMS"_qs); // in every language
        }
    });
    return true;
}

bool ModemWatcher::awaitsListing() const
{
    return (listing_ == Listing::Asked || listing_ == Listing::AskedAndOwed) &&
           clock_.elapsed() - listingHeard_ < kListingTimeOut &&
           clock_.elapsed() - listingAsked_ < kLongestListing;
}

void ModemWatcher::timerSendTick()
{
    // Without a line every message would be given up, one after the other.
    if (!lineIsFree() || awaitsListing() || !module_.ModemReady || !line_.isOpen() ||
        flags_.QueueRunning || flags_.ReadingMessages || flags_.ComposingSms ||
        flags_.ModemInitRunning || flags_.WaitingForCmgs || startAnew()) {
        return;
    }
    const bool isOwed = listing_ == Listing::Owed || listing_ == Listing::AskedAndOwed;
    listing_ = Listing::None; // or lost
    // A box may stand open in one of the steps, and other ticks do all of it meanwhile, or a
    // listing begins, or the operator chooses another line.
    const auto unlessOvertaken = [this, tick = ++sendTicks_](const std::function<void()> &step) {
        return [this, tick, step] {
            const bool goesOn = tick == sendTicks_ && lineIsFree() && !awaitsListing() &&
                                module_.ModemReady && !flags_.ModemInitRunning;
            goesOn ? step() : void();
        };
    };
    const auto refresh = unlessOvertaken([&] {
        refresh_([&] { recordsets_.reopen(); });
        passOnTheEnd(clock_);
    });
    skipped({unlessOvertaken([&] { StartNyBruker(); }), refresh,
             unlessOvertaken([&] { sendFirst(); }), refresh, unlessOvertaken([&] {
                 if (pace_.interval() < kNoListingFrom || isOwed ||
                     clock_.elapsed() - listingAsked_ >= kIdleListing) {
                     requestListing();
                 }
             })});
}

void ModemWatcher::sendFirst()
{
    const auto send = [&] { queue_.SendQueuedSms(); };
    if (refresh_.haveFailed()) {
        kept(send); // the operator has been told of the file
    } else {
        send_(send);
    }
    passOnTheEnd(clock_);
}

void ModemWatcher::responseChanged()
{
    const auto handler = [&] { watch(response_.text()); };
    // The interpreter uses the caption for its working text, and never opens a box.
    if (flags_.owner.who() == LineOwner::Who::Interpreter) {
        kept(handler);
    } else {
        shown(operator_, {}, handler);
    }
}

void ModemWatcher::watch(const QString &text)
{
    if (const Notice notice = noticeIn(text); notice != Notice::None) {
        notified(notice == Notice::Message ? u"Mottar SMS"_qs : u"Mottar Kvittering"_qs);
        return;
    }
    if (holds(text, u"OK"_qs)) {
        flags_.ReadingMessages = false;
        if (!flags_.QueuePending) {
            pace_.slowDown();
        }
    }
    if (holds(text, u"ERROR"_qs) && !flags_.QueuePending) {
        pace_.restart(kAfterEvent);
    }
    // Nobody reads the text behind a high place: in the middle of a line a header is a stranger's.
    const std::optional<QString> record = answerIn(text, u"+CMGL"_qs);
    if (record && (!listsHighPlace_ || beginsLikeHeader(text.trimmed()))) {
        listed(*record);
    }
}

void ModemWatcher::notified(const QString &panelText)
{
    view_.setPanel(kInboundPanel, panelText);
    if (flags_.QueuePending) {
        // The pace stands at 30 seconds then: the listing would come late.
        if (awaitsListing()) {
            listing_ = Listing::AskedAndOwed;
        } else if (flags_.owner.who() == LineOwner::Who::Interpreter) {
            listing_ = Listing::Owed;
        } else {
            requestListing();
        }
    } else {
        pace_.restart(kAfterEvent);
    }
}

/// What stands behind the name in a record's header.
void ModemWatcher::listed(const QString &record)
{
    // A header in the text of a message is a stranger's: an index of his choice would have another
    // record deleted instead of this one, which would come again with each listing.
    // Behind a silence a line of the text may come yet, and look like one.
    if (flags_.owner.who() == LineOwner::Who::Interpreter || restIsComing_) {
        return;
    }
    module_.MessageIndex = 0;
    int place = 0;
    for (const QChar digit : record.left(kLongestIndex)) {
        if (digit < u'0' || digit > u'9') {
            break;
        }
        place = 10 * place + (digit.unicode() - u'0');
    }
    // The place is held in a byte. A record behind that is in each listing of this modem, and is no
    // news from the second on.
    listsHighPlace_ = listsHighPlace_ || place > kHighestPlace;
    if (place > kHighestPlace &&
        std::exchange(highPlaceTold_, flags_.initialisations) == flags_.initialisations) {
        return;
    }
    module_.MessageIndex = byteOf(place);
    flags_.ReadingMessages = true;
    view_.setPanel(kInboundPanel,
                   u"Melding "_qs + QString::number(module_.MessageIndex) + u" MOTTATT"_qs);
    timerCom_.setEnabled(false); // the interpreter switches it on again
    const LineOwner::Turn turn(flags_.owner, LineOwner::Who::Interpreter);
    Read_SMS_MessageTEXT();
}

void ModemWatcher::requestListing()
{
    line_.SendData(u"AT+CMGL=ALL\r"_qs);
    listing_ = Listing::Asked;
    listsHighPlace_ = false;
    restIsComing_ = false;
    listingAsked_ = listingHeard_ = clock_.elapsed();
}

void ModemWatcher::listingEnded()
{
    if (listing_ == Listing::Asked) {
        listing_ = Listing::None;
    } else if (listing_ == Listing::AskedAndOwed) {
        listing_ = Listing::Owed;
    }
}
