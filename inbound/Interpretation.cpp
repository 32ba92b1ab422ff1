#include "inbound/Interpretation.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/MessageRecord.h"
#include "modem/ModemResponse.h"
#include "platform/Text.h"

Interpretation::Interpretation(Module1 &module_, Recordsets &recordsets_, ModemResponse &response,
                               ErrorRule &rule_, const QDate &today_, const QString &dateFormat_)
    : module(module_),
      recordsets(recordsets_),
      rule(rule_),
      today(today_),
      dateFormat(dateFormat_),
      response_(response)
{
}

QString Interpretation::text() const
{
    return response_.text();
}

void Interpretation::setText(const QString &text)
{
    response_.setText(text);
}

void Interpretation::add(Recordset &rows,
                         std::initializer_list<std::pair<const char16_t *, QString>> values)
{
    // Without a new row the values would go into the row where the set happens to stand.
    if (rule.step([&] { rows.addNew(); })) {
        change(rows, values);
    }
}

void Interpretation::change(Recordset &rows,
                            std::initializer_list<std::pair<const char16_t *, QString>> values)
{
    for (const auto &[column, value] : values) {
        rule.step([&] { rows.setValue(QString::fromUtf16(column), value); });
    }
    rule.step([&] { rows.update(); });
}

bool Interpretation::findPerson(const QString &shortForm)
{
    Recordset &persons = recordsets.rsKatalog;
    rule.step([&] { persons.requery(); });
    return rule.found([&] { return persons.findFirst(u"BrukerKort"_qs, shortForm); });
}

bool Interpretation::findUserOnDoor(const QString &fullNumber)
{
    Recordset &users = recordsets.rsBrukereAll;
    const QString column = u"KeyBruker"_qs;
    rule.step([&] { users.requery(); });
    return rule.found([&] {
        for (bool hit = users.findFirst(column, fullNumber); hit;
             hit = users.find(column, fullNumber)) {
            if (same(users.text(u"KeyNummer"_qs), module.SenderNumber)) {
                return true;
            }
            users.moveNext();
        }
        return false;
    });
}

int phrasePosition(const QString &text, std::span<const QStringView> phrases)
{
    int sum = 0;
    for (const QStringView phrase : phrases) {
        sum += inStr(text, phrase.toString());
    }
    return sum;
}

QString numberBefore(const QString &text, int phrase)
{
    const int lineFeed = inStr(phrase - 13, text, QStringLiteral("\n"));
    return withoutCountry(mid(text, lineFeed + 1, phrase - 1 - lineFeed));
}
