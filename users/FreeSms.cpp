#include "users/FreeSms.h"

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
            // One with a quote cannot be looked for, so that none waits.
            if (sms.text.contains(u'\'')) {
                sms.takesOver = OutboundSms::TakesOver::Nobodys;
            }
            modem_.queue.queue(sms);
        },
        [&] { modem_.flags.ComposingSms = false; },
    });
}
