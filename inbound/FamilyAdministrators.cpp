// The door tells its description, its administrator, its five assistants and its own number. The
// colon and the line feed behind the labels are only counted:
//
//   Hovedinngang
//   Administrator
//   +4791234567
//   Assistent
//   A1:
//   +4792345678
//   ... the same for A2 to A5, and an empty line
//   Eget Nummer
//   +4797890123

#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "inbound/MessageRecord.h"
#include "platform/Text.h"

namespace {

constexpr QStringView kWords[] = {
    u"Administrator",
    u"Administrat|r", // Swedish, ö being code 124
};
constexpr int kShortNumber = 8;
// The line reader has stripped the line feed behind the last number of the message.
constexpr int kLongestLastLine = 15;

QString description(Interpretation &record, int word)
{
    QString result;
    record.rule.step([&] {
        // The line feed before the word goes.
        for (const QChar raw : mid(record.text(), 1, word - 2)) {
            result += record.ownCharacter(raw);
        }
    });
    return result;
}

QString administrator(const QString &text, int word)
{
    const int number = word + 14;
    const QString result =
        withoutCountry(mid(text, number, inStr(text, u"Assistent"_qs) - 1 - number));
    const bool hasNinthDigit = result.size() > kShortNumber && result[kShortNumber] >= u'0' &&
                               result[kShortNumber] <= u'9';
    return hasNinthDigit ? result : left(result, kShortNumber);
}

/// The number between two labels, without the characters at its end that belong to the next label.
QString assistant(const QString &text, const QString &label, const QString &next, int atEnd)
{
    const int position = inStr(text, label);
    const int number = position > 0 ? position + 4 : 0; // no label: the cut fails
    return withoutCountry(mid(text, number, inStr(text, next) - atEnd - number));
}

QString ownNumber(const QString &text)
{
    const int start = inStr(inStr(text, u"Eget Nummer"_qs), text, u"\n"_qs);
    int end = inStr(start + 2, text, u"\n"_qs);
    if (end == 0) {
        end = start + kLongestLastLine;
    }
    // A line feed that is there takes the character before it along: files hold numbers so cut.
    return withoutCountry(mid(text, start + 1, end - 2 - start));
}

} // namespace

bool saysAdministrators(const Interpretation &record)
{
    const QString text = record.text();
    return phrasePosition(text, kWords) > 0 && holds(text, u"A1"_qs) && holds(text, u"A2"_qs) &&
           holds(text, u"A3"_qs);
}

void readAdministrators(Interpretation &record)
{
    const QString text = record.text();
    const int word = phrasePosition(text, kWords);
    // What cannot be cut is written empty.
    const auto cut = [&](const auto &number) {
        QString value;
        record.rule.step([&] { value = number(); });
        return value;
    };
    bool isMissing = false; // a label: nothing behind it can be told apart
    const auto between = [&](const QString &label, const QString &next, int atEnd) {
        isMissing = isMissing || !holds(text, label);
        const QString number = cut([&] { return assistant(text, label, next, atEnd); });
        return isMissing ? QString() : number;
    };
    const QString Beskrivelse = description(record, word);
    const QString Admin = cut([&] { return administrator(text, word); });
    const QString Admin1 = between(u"A1"_qs, u"A2"_qs, 1);
    const QString Admin2 = between(u"A2"_qs, u"A3"_qs, 1);
    const QString Admin3 = between(u"A3"_qs, u"A4"_qs, 1);
    const QString Admin4 = between(u"A4"_qs, u"A5"_qs, 1);
    const QString Admin5 = between(u"A5"_qs, u"Eget Nummer"_qs, 2);
    const QString Eget_Nummer = cut([&] { return ownNumber(text); });
    if (record.findDoor() == Interpretation::Lookup::Hit) {
        record.change(record.recordsets.rsKeyAll, {{u"Beskrivelse", Beskrivelse},
                                                   {u"Admin", Admin},
                                                   {u"Admin1", Admin1},
                                                   {u"Admin2", Admin2},
                                                   {u"Admin3", Admin3},
                                                   {u"Admin4", Admin4},
                                                   {u"Admin5", Admin5},
                                                   {u"Eget_Nummer", Eget_Nummer}});
    }
}
