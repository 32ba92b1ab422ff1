#include "inbound/MessageReader.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "inbound/MessageRecord.h"
#include "modem/ModemLink.h"
#include "modem/ModemView.h"
#include "platform/Clock.h"
#include "platform/Host.h"
#include "platform/Text.h"

#include <utility>

namespace {

constexpr int kDeleteAttempts = 3;
constexpr int kBodyReads = 4;

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
    listingEnded_ = false;

    // An index of 0 is no place in the modem's store.
    const bool received = module_.MessageIndex != 0 && isReceivedMessage(link_.response.text());
    auto record = interpretation(link_, module_, recordsets_, rule_, clock_, host_);
    QString stamp;
    if (received) {
        stamp = readReceivedMessage(record);
    }
    // All that a message changes, or nothing: a file that cannot be had leaves it in the modem,
    // and a power cut doesn't leave half of it. One that refuses a single row loses that row.
    const bool stored = rule_.step([&] {
        recordsets_.atOnce([&] {
            if (received) {
                file(record, stamp);
            }
            runFamilies(record, received);
        });
    });

    view_.setPanel(2, u"Klar for innkommende SMS"_qs); // in every language
    rule_.step([&] { recordsets_.OpenRecordsets(); });
    rule_.step([&] { VisBrukerTabell_(); });
    deleteFromModem(stored);

    link_.TimerCom->setEnabled(true);
    link_.flags.ReadingMessages = false;
    link_.pace.restart(3000ms);
}

QString MessageReader::readReceivedMessage(Interpretation &record)
{
    const QString header = ownCharacters(record.text());
    QString stamp;
    // A sender that cannot be cut leaves that of the message before.
    rule_.step([&] { module_.SenderNumber = senderOf(header); });
    module_.RefreshPending = true;
    rule_.step([&] { stamp = stampOf(header); });
    rule_.step([&] { record.setText(ownCharacters(readBody())); });
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

QString MessageReader::readBody()
{
    // A modem may need longer for a line than a read waits, and an empty line never gets here.
    QString line;
    for (int reads = 0; reads < kBodyReads && line.isEmpty(); ++reads) {
        line = link_.line.ReadModemLine();
    }
    const bool saysOk = same(line, u"OK"_qs);
    if (!saysOk && !isHeader(line) && !isNotice(line)) {
        return line;
    }
    // Somebody's text, or none of it: a message without text has no line, so that the next header
    // follows or the "OK" of the listing, and a notice comes at any time. The next line tells.
    const QString next = link_.line.ReadModemLine();
    const bool atEnd = same(next, u"OK"_qs);
    listingEnded_ = atEnd || (saysOk && next.isEmpty());
    const bool nothingFollows = next.isEmpty() || atEnd || isHeader(next);
    if (saysOk) {
        return next.isEmpty() ? QString() : line;
    }
    if (isNotice(line)) {
        return nothingFollows ? line : next;
    }
    return nothingFollows ? line : QString();
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

void MessageReader::deleteFromModem(bool stored)
{
    const auto answersOk = [&] { return rule_.test([&] { return link_.line.WaitForModemOK(); }); };
    const bool listed = listingEnded_ || answersOk();
    if (!listed || !stored) {
        return; // the record stays in the modem, to be read again
    }
    for (int attempt = 0; attempt < kDeleteAttempts; ++attempt) {
        rule_.step([&] { link_.line.SendData(u"AT+CMGD=%1\r"_qs.arg(module_.MessageIndex)); });
        if (answersOk()) {
            return;
        }
    }
}
