#include "users/FreeSms.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLink.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/Text.h"
#include "users/Numbers.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int kOneMessage = 160; ///< characters, each of seven bits
constexpr int kOneOfSeveral = 153;
constexpr int kLongest = 255; ///< the submission takes no more

QString translated(const char *text)
{
    return QCoreApplication::translate("FreeSms", text);
}

/// Enter ends a line here. At the end of a message nobody means that, and a unit would get a
/// command that it doesn't know; within it the break is sent.
QString withoutOuterBreaks(const QString &text)
{
    const auto isNoBreak = [](QChar each) { return each != u'\n' && each != u'\r'; };
    const auto first = std::find_if(text.begin(), text.end(), isNoBreak);
    const auto last = std::find_if(text.rbegin(), text.rend(), isNoBreak).base();
    return first < last ? text.mid(first - text.begin(), last - first) : QString();
}

/// As one sees it in a list of such.
QString named(char32_t character)
{
    return QChar::isPrint(character)
               ? QString::fromUcs4(&character, 1)
               : QStringLiteral("U+%1").arg(uint(character), 4, 16, QChar(u'0')).toUpper();
}

/// Each once, with blanks between.
void addOnce(QString &list, char32_t character)
{
    const QString name = named(character);
    if (!list.split(u' ').contains(name)) {
        list += (list.isEmpty() ? QString() : QStringLiteral(" ")) + name;
    }
}

} // namespace

TextNotes notesOnSms(const QString &text, const CharacterTables &tables, bool isCommand)
{
    constexpr quint8 kAt = 0;
    QString asAt;
    QString asUnknown;
    const QList<uint> characters = text.toUcs4();
    for (const char32_t character : characters) {
        const int code =
            QChar::requiresSurrogates(character) ? -1 : windows1252Code(QChar(character));
        if (code < 0) {
            addOnce(asUnknown, character);
        } else if (tables.out(code) == kAt && character != u'@') {
            addOnce(asAt, character);
        }
    }
    const auto length = static_cast<int>(characters.size());
    const int messages = length <= kOneMessage ? 1 : (length + kOneOfSeveral - 1) / kOneOfSeveral;
    QStringList warnings;
    if (length > kLongest) {
        warnings += translated("Over %1 tegn: Meldingen blir ikke sendt. Uten sendingsbekreftelse "
                               "blir den liggende og sperrer for dem som venter.")
                        .arg(kLongest);
    } else if (messages > 1) {
        warnings += translated("Over %1 tegn: Modemet får alt i ett stykke, og kan dele, kutte "
                               "eller avvise det.")
                        .arg(kOneMessage);
    }
    if (!asAt.isEmpty()) {
        warnings += translated("Kommer fram som @: %1").arg(asAt);
    }
    if (!asUnknown.isEmpty()) {
        warnings += translated("Kommer fram som ?: %1").arg(asUnknown);
    }
    if (isCommand && text.contains(u'\n')) {
        warnings += translated("Døren leser hele meldingen, med linjeskift, som én kommando.");
    }
    return {messages == 1 ? translated("%1 av %2 tegn, 1 melding").arg(length).arg(kOneMessage)
                          : translated("%1 tegn, %2 meldinger").arg(length).arg(messages),
            warnings.join(u'\n')};
}

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
    send(sms, false);
}

void FreeSms::toDoor()
{
    OutboundSms sms;
    sms.recipient = recordsets_.doorNumber();
    sms.recipientShort = numberToEnd(sms.recipient);
    sms.Etternavn = recordsets_.doorName();
    send(sms, true);
}

void FreeSms::send(OutboundSms sms, bool isCommand)
{
    const auto notes = [this, isCommand](const QString &text) {
        return notesOnSms(withoutOuterBreaks(text), modem_.tables, isCommand);
    };
    const ScreenTexts &texts = module_.texts;
    sms.hurry = OutboundSms::Hurry::Never; // before the dialogue, and not behind it
    skipped({
        [&] { modem_.flags.ComposingSms = true; },
        [&] { modem_.pace.hurry(); },
        [&] {
            // Cancel gives an empty text, and that goes the way of any other.
            sms.text = toWindows1252(withoutOuterBreaks(person_.textBox(
                texts.skrivMeldingstekst, texts.sendSmsTil + sms.recipient, QString(), notes)));
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
