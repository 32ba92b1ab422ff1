#include "users/FreeSms.h"

#include "data/Dates.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLink.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/Text.h"
#include "users/Numbers.h"

FreeSms::FreeSms(Module1 &module, Recordsets &recordsets, ModemLink &modem, Operator &person,
                 Clock &clock)
    : module_(module), recordsets_(recordsets), modem_(modem), person_(person), clock_(clock)
{
}

void FreeSms::toUser(const UserEntry &entry)
{
    OutboundSms sms;
    sms.recipient = entry.number;
    sms.recipientShort = shortNumber(entry.number);
    sms.Etternavn = entry.etternavn;
    sms.Fornavn = entry.fornavn;
    send(sms);
}

void FreeSms::toDoor()
{
    OutboundSms sms;
    sms.recipient = recordsets_.doorNumber();
    sms.recipientShort = numberToEnd(sms.recipient);
    sms.Etternavn = recordsets_.doorName();
    send(sms);
}

void FreeSms::send(OutboundSms sms)
{
    const ScreenTexts &texts = module_.texts;
    sms.hurry = OutboundSms::Hurry::Never; // before the dialogue, and not behind it
    skipped({
        [&] { modem_.flags.ComposingSms = true; },
        [&] { modem_.pace.hurry(); },
        [&] {
            // Cancel gives an empty text, and that goes the way of any other.
            sms.text = toWindows1252(person_.inputBox(texts.skrivMeldingstekst,
                                                      texts.sendSmsTil + sms.recipient, QString()));
        },
        [&] { person_.messageBox(sms.text, QStringLiteral("Send SMS"), Buttons::Ok); },
        [&] {
            sms.date = clock_.now().date();
            queue(sms);
        },
        [&] { modem_.flags.ComposingSms = false; },
    });
}

void FreeSms::queue(const OutboundSms &sms)
{
    if (!sms.text.contains(u'\'')) {
        modem_.queue.queue(sms);
        return;
    }
    // A text with a quote cannot be searched for, and it is required that the step behind the
    // search runs all the same on what the outbox shows then: its first row, if there is one, goes
    // to the new recipient with its own old text.
    Recordset &outbox = recordsets_.rsSmsOutbox;
    outbox.moveFirst();
    if (outbox.isEmpty()) {
        outbox.addNew();
        outbox.setValue(QStringLiteral("SMS_Text"), sms.text);
    }
    outbox.setValue(QStringLiteral("TilNummer"), sms.recipient);
    outbox.setValue(QStringLiteral("TilNummerKort"), sms.recipientShort);
    outbox.setValue(QStringLiteral("Dato"), storedDate(sms.date));
    outbox.setValue(QStringLiteral("DatoLNG"), dayNumber(sms.date));
    outbox.setValue(QStringLiteral("CMGS"), sms.state);
    if (!sms.Etternavn.isEmpty()) {
        outbox.setValue(QStringLiteral("Etternavn"), sms.Etternavn);
    }
    if (!sms.Fornavn.isEmpty()) {
        outbox.setValue(QStringLiteral("Fornavn"), sms.Fornavn);
    }
    outbox.update();
}
