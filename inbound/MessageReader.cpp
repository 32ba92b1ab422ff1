#include "inbound/MessageReader.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "inbound/Listing.h"
#include "inbound/MessageRecord.h"
#include "modem/ModemLink.h"
#include "modem/ModemView.h"
#include "modem/ModemWords.h"
#include "platform/Clock.h"
#include "platform/Host.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <QCoreApplication>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr int kDeleteAttempts = 3;
constexpr size_t kMostPlaces = 255; ///< of a modem's store

Interpretation interpretation(ModemLink &link, Module1 &module, Recordsets &recordsets,
                              ErrorRule &rule, const Clock &clock, const Host &host)
{
    return {module, recordsets,         link.response,    link.tables,
            rule,   clock.now().date(), host.dateFormat()};
}

} // namespace

MessageReader::MessageReader(ModemLink &link, Module1 &module, Recordsets &recordsets,
                             ModemView &view, Clock &clock, const Host &host,
                             std::function<void()> VisBrukerTabell)
    : link_(link),
      module_(module),
      recordsets_(recordsets),
      view_(view),
      clock_(clock),
      host_(host),
      VisBrukerTabell_(std::move(VisBrukerTabell)),
      rule_(*link.TimerCom, link.flags, link.pace)
{
}

void MessageReader::Read_SMS_MessageTEXT()
{
    link_.TimerCom->setEnabled(false);
    link_.pace.stop();
    link_.flags.ReadingMessages = true;

    const quint8 place = module_.MessageIndex;
    const int initialisations = link_.flags.initialisations;
    const QString listed = link_.response.text();
    const QString header = closedUp(listed);
    // An index of 0 is no place in the modem's store.
    const bool received = place != 0 && isReceivedMessage(header);
    auto record = interpretation(link_, module_, recordsets_, rule_, clock_, host_);
    Listing listing(link_.line, std::exchange(oddLines_, {}));
    listing.begin(listed);
    QString stamp;
    QString text;
    if (received && !listing.isBroken()) {
        stamp = readStamp(header);
        if (!rule_.step([&] { text = ownCharacters(listing.readText()); })) {
            listing.breakOff(); // the port is gone
        }
        if (link_.flags.initialisations != initialisations) {
            listing.breakOff(); // a click has read lines of it away, or chosen another modem
        }
    }
    const bool isTextCut = listing.isTextCut();
    const Record listedRecord{header, text};
    const auto isThis = [&](const Record &seen) { return seen.isListedAgain(listedRecord); };
    const bool comesAgain = std::ranges::any_of(stored_, isThis);
    const bool wasDoubtful = std::erase_if(doubtful_, isThis) > 0;
    if (received && isTextCut && !comesAgain && !wasDoubtful) {
        listing.breakOff();
        doubtful_.push_back(listedRecord);
    }
    if (doubtful_.size() > kMostPlaces) {
        doubtful_.erase(doubtful_.begin());
    }
    bool stored = comesAgain;
    std::optional<QString> why;
    if (!comesAgain && !listing.isBroken()) {
        rule_.step([&] { record.setText(received ? text : header); });
        // All that a message changes, or nothing: a file that cannot be had leaves it in the modem,
        // and a power cut doesn't leave half of it. One that refuses a single row loses that row.
        const auto store = [&] {
            if (!recordsets_.areOpen()) {
                recordsets_.reopen(); // or every step is passed over, and nothing fails
            }
            if (received) {
                file(record, stamp);
            }
            runFamilies(record, received);
        };
        stored = rule_.step([&] { recordsets_.atOnce(store); }, &why.emplace());
    }

    view_.setPanel(2, u"Klar for innkommende SMS"_qs); // in every language
    rule_.step([&] { recordsets_.reopen(); });         // a box would hold the line up
    rule_.step([&] { VisBrukerTabell_(); });
    rule_.step([&] { listing.readToEnd(); });
    if (stored && !comesAgain) {
        stored_.push_back(listedRecord);
    }
    oddLines_ = listing.oddLines();
    bool isAnswered = true;
    if (listing.isWhole()) {
        link_.line.takeSigns(); // a text may look like one
        link_.flags.HasForgotten = link_.flags.HasForgotten || listing.hasRestarted();
    }
    // A modem that has started anew may stand on another store: the next listing deletes it there.
    if (stored && listing.isWhole() && !listing.hasRestarted()) {
        if (deleteFromModem(place, initialisations, isAnswered)) {
            std::erase_if(stored_, isThis);
        } else if (comesAgain && link_.line.isOpen() &&
                   link_.flags.initialisations == initialisations &&
                   !(undeletable_ && isThis(*undeletable_))) {
            undeletable_ = listedRecord;
            why = QCoreApplication::translate("MessageReader",
                                              "Modemet sletter ikke melding %1. Meldingene etter "
                                              "den blir ikke lest før den er slettet.")
                      .arg(place);
        }
    }

    if (link_.response.text() == listed) {
        link_.response.setText({}); // or the same one would go unnoticed in the next listing
    }
    const bool mayGoOn = isTextCut || listing.isSilent() || !isAnswered;
    mayGoOn ? link_.watcher.listingRests() : link_.watcher.listingEnded();
    link_.TimerCom->setEnabled(true);
    link_.flags.ReadingMessages = false;
    link_.pace.restart(3000ms);
    if (why) {
        tellOnce(*why);
    }
}

/// A file that cannot be written, or a record that cannot be deleted, keeps every message in the
/// modem, which fills up: somebody must know. Each listing meets the same failure.
void MessageReader::tellOnce(const QString &failure)
{
    if (std::exchange(told_, failure) != failure && !failure.isEmpty()) {
        throw RuntimeFailure(failure);
    }
}

/// Listing a message that was unread has made it a read one.
bool MessageReader::Record::isListedAgain(const Record &later) const
{
    QString again = header;
    again.replace(u"\"REC UNREAD\""_qs, u"\"REC READ\""_qs);
    return later.text == text && (later.header == header || later.header == again);
}

/// A sender that cannot be cut leaves that of the message before; a stamp none.
QString MessageReader::readStamp(const QString &header)
{
    const QString ownHeader = ownCharacters(header);
    QString stamp;
    rule_.step([&] { module_.SenderNumber = senderOf(ownHeader); });
    module_.RefreshPending = true;
    rule_.step([&] { stamp = stampOf(ownHeader); });
    return stamp;
}

void MessageReader::file(Interpretation &record, const QString &stamp)
{
    const QString body = filedBody(record);
    const auto [Etternavn, Fornavn] = senderName(record);

    Recordset &messages = recordsets_.rsSmsReceived;
    record.add(messages, {{u"FraNummer", module_.SenderNumber},
                          {u"FraNummerKort", shortSender(module_.SenderNumber)},
                          {u"SMS_Text", body},
                          {u"Dato", stamp},
                          {u"Etternavn", Etternavn},
                          {u"Fornavn", Fornavn}});
    rule_.step([&] { messages.requery(); });
    rule_.step([&] { messages.moveLast(); });
}

QString MessageReader::filedBody(Interpretation &record)
{
    const QString text = record.text();
    // The length is held in a byte: a longer text is filed without any of it. The families still
    // read the whole.
    quint8 length = 0;
    rule_.step([&] { length = byteOf(static_cast<int>(text.size())); });
    QString body;
    for (int i = text.startsWith(u'\n') ? 1 : 0; i < length; ++i) {
        if (text[i] == u'\n') {
            body += u"\r\n"_qs;
            continue;
        }
        body += record.ownCharacter(text[i]);
    }
    return body;
}

std::pair<QString, QString> MessageReader::senderName(Interpretation &record)
{
    QString Etternavn = u"?"_qs;
    QString Fornavn = u"?"_qs;
    const QString &sender = module_.SenderNumber;
    const Recordset &persons = recordsets_.rsKatalog;
    if (rule_.found([&] { return recordsets_.rsKatalog.findFirst(u"Bruker"_qs, sender); })) {
        record.takeName(Etternavn, persons, u"Etternavn"_qs);
        record.takeName(Fornavn, persons, u"Fornavn"_qs);
    }
    if (Etternavn == u"?" && Fornavn == u"?" &&
        rule_.found([&] { return recordsets_.rsKeyAll.findFirst(u"KeyNummer"_qs, sender); })) {
        record.takeName(Etternavn, recordsets_.rsKeyAll, u"KeyNavn"_qs);
        Fornavn = u" "_qs;
    }
    return {Etternavn, Fornavn};
}

void MessageReader::runFamilies(Interpretation &record, bool received)
{
    for (const Family &family : kFamilies) {
        const bool comes = received || family.records == Family::Records::All;
        if (comes && rule_.test([&] { return family.applies(record); })) {
            family.read(record);
        }
    }
}

/// A command that was refused is repeated. One that nobody answered may have been heard, and by now
/// another message may have come to the place: the next listing shows. A click may choose another
/// modem at any time: what lies at the place there is not ours.
bool MessageReader::deleteFromModem(quint8 place, int initialisations, bool &isAnswered)
{
    const auto isOurs = [&] { return link_.flags.initialisations == initialisations; };
    for (int attempt = 0; attempt < kDeleteAttempts && isOurs(); ++attempt) {
        bool isGone = false;
        bool isRefused = false;
        rule_.step([&] {
            link_.line.SendData(u"AT+CMGD=%1\r"_qs.arg(place));
            isGone = link_.line.WaitForModemOK(
                [&](const QString &line) { isRefused |= isFinalError(line); });
        });
        isAnswered = isGone || isRefused;
        if (isGone || !isRefused) {
            return isGone;
        }
    }
    return false;
}
