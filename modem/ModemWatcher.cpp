#include "modem/ModemWatcher.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLine.h"
#include "modem/ModemResponse.h"
#include "modem/ModemView.h"
#include "modem/OutboundQueue.h"
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
constexpr int kLongestIndex = 7;

const QString &header()
{
    static const QString kHeader = u"+CMGL: "_qs;
    return kHeader;
}

enum class Notice { None, Message, Report };

Notice noticeIn(const QString &text)
{
    if (holds(text, u"+CMTI"_qs)) {
        return Notice::Message;
    }
    return holds(text, u"+CDSI: "_qs) ? Notice::Report : Notice::None;
}

} // namespace

ModemWatcher::ModemWatcher(Module1 &module, ModemFlags &flags, Recordsets &recordsets,
                           ModemLine &line, ModemResponse &response, OutboundQueue &queue,
                           SendPace &pace, Timer &TimerCom, ModemView &view, Operator &person)
    : module_(module),
      flags_(flags),
      recordsets_(recordsets),
      line_(line),
      response_(response),
      queue_(queue),
      pace_(pace),
      timerCom_(TimerCom),
      view_(view),
      operator_(person)
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
        if (!text.isEmpty()) {
            listingAwaited_ = listingAwaited_ && noticeIn(text) != Notice::None;
            response_.setText(text);
        }
    });
}

QString ModemWatcher::takeLine()
{
    // A line that comes slowly keeps a read waiting for longer than a tick: the ticks inside it
    // must not take the rest of that line. The interpreter's reads are no different, whose failing
    // steps switch TimerCom on early.
    if (takingLine_ || interpreting_ || !module_.ModemReady || flags_.QueueRunning ||
        flags_.ModemInitRunning) {
        return {};
    }
    if (module_.ActiveComPort != kNetworkModem && !line_.isOpen()) {
        tellLostPort();
        return {};
    }
    takingLine_ = true;
    const auto taken = qScopeGuard([&] { takingLine_ = false; });
    lossTold_ = true; // by the failure itself, if the port goes now
    const QString text = line_.hasLine() ? line_.ReadModemLine() : QString();
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

void ModemWatcher::timerSendTick()
{
    if (!module_.ModemReady || flags_.QueueRunning || flags_.ReadingMessages ||
        flags_.ComposingSms || flags_.ModemInitRunning || flags_.WaitingForCmgs) {
        return;
    }
    listingAwaited_ = false; // or lost
    skipped({[&] { StartNyBruker(); }, [&] { recordsets_.OpenRecordsets(); },
             [&] { queue_.SendQueuedSms(); }, [&] { recordsets_.OpenRecordsets(); },
             [&] {
                 if (pace_.interval() < kNoListingFrom || listingOwed_) {
                     requestListing();
                 }
             }});
}

void ModemWatcher::responseChanged()
{
    const auto handler = [&] { watch(response_.text()); };
    // The interpreter uses the caption for its working text, and never opens a box.
    if (interpreting_) {
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
    if (holds(text, header())) {
        listed(text);
    }
}

void ModemWatcher::notified(const QString &panelText)
{
    view_.setPanel(kInboundPanel, panelText);
    if (flags_.QueuePending) {
        // The pace stands at 30 seconds then: the listing would come late. One that is on its way
        // already has the new record in it. A second would name the first one's records again,
        // behind their deletion: they would be filed twice, and whatever has come to their places
        // meanwhile would be deleted unread.
        if (listingAwaited_) {
            listingOwed_ = true;
        } else {
            requestListing();
        }
    } else {
        pace_.restart(kAfterEvent);
    }
}

void ModemWatcher::listed(const QString &text)
{
    // A header in the text of a message is a stranger's: an index of his choice would have another
    // record deleted instead of this one, which would come again with each listing.
    if (interpreting_) {
        return;
    }
    flags_.ReadingMessages = true;
    module_.MessageIndex = 0;
    const int first = inStr(text, header()) + static_cast<int>(header().size());
    for (const QChar digit : mid(text, first, kLongestIndex)) {
        if (digit < u'0' || digit > u'9') {
            break;
        }
        module_.MessageIndex = byteOf(10 * module_.MessageIndex + (digit.unicode() - u'0'));
    }
    view_.setPanel(kInboundPanel,
                   u"Melding "_qs + QString::number(module_.MessageIndex) + u" MOTTATT"_qs);
    timerCom_.setEnabled(false); // the interpreter switches it on again
    interpreting_ = true;
    const auto interpreted = qScopeGuard([&] { interpreting_ = false; });
    Read_SMS_MessageTEXT();
}

void ModemWatcher::requestListing()
{
    line_.SendData(u"AT+CMGL=ALL\r"_qs);
    listingAwaited_ = true;
    listingOwed_ = false;
}
