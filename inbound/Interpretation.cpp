#include "inbound/Interpretation.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/MessageRecord.h"
#include "modem/CharacterTables.h"
#include "modem/ModemResponse.h"
#include "platform/Text.h"

#include <algorithm>

Interpretation::Interpretation(Module1 &module_, Recordsets &recordsets_, ModemResponse &response,
                               const CharacterTables &tables, ErrorRule &rule_, const QDate &today_,
                               const QString &dateFormat_)
    : module(module_),
      recordsets(recordsets_),
      rule(rule_),
      today(today_),
      dateFormat(dateFormat_),
      response_(response),
      tables_(tables)
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

QChar Interpretation::ownCharacter(QChar raw)
{
    QChar character = raw;
    rule.step([&] { character = windows1252Character(tables_.in(raw.unicode())); });
    return character;
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
    for (const auto &value : values) {
        rule.step([&] {
            // Doors repeat themselves, and every write waits for the disk.
            const QString name = QString::fromUtf16(value.first);
            if (rows.value(name) != QVariant(value.second)) {
                rows.setValue(name, value.second);
            }
        });
    }
    rule.step([&] { rows.update(); });
}

void Interpretation::takeName(QString &target, const Recordset &rows, const QString &column)
{
    rule.step([&] {
        if (const QString name = rows.text(column); !name.isEmpty()) {
            target = name;
        }
    });
}

ErrorRule::Lookup Interpretation::findPerson(const QString &shortForm)
{
    Recordset &persons = recordsets.rsKatalog;
    rule.step([&] { persons.requery(); });
    return rule.lookup([&] { return persons.findFirst(u"BrukerKort"_qs, shortForm); });
}

QString Interpretation::catalogKey(const QString &shortForm)
{
    Recordset &persons = recordsets.rsKatalog;
    QString CatalogKey = module.dialPrefix() + shortForm;
    const Lookup person = findPerson(shortForm);
    if (person == Lookup::Hit) {
        rule.step([&] { CatalogKey = persons.text(u"Bruker"_qs); });
    } else if (person == Lookup::None) {
        add(persons, {{u"Bruker", CatalogKey},
                      {u"BrukerKort", shortForm},
                      {u"Etternavn", u"?"_qs},
                      {u"Fornavn", u"?"_qs}});
    }
    return CatalogKey;
}

ErrorRule::Lookup Interpretation::findUserOnDoor(const QString &fullNumber)
{
    Recordset &users = recordsets.rsBrukereAll;
    rule.step([&] { users.requery(); });
    return rule.lookup([&] {
        return users.findFirst(u"KeyBruker"_qs, fullNumber,
                               {{u"KeyNummer"_qs, module.SenderNumber}});
    });
}

ErrorRule::Lookup Interpretation::findDoor()
{
    Recordset &doors = recordsets.rsKeyAll;
    rule.step([&] { doors.requery(); });
    return rule.lookup([&] { return doors.findFirst(u"KeyNummer"_qs, module.SenderNumber); });
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

QString starredNumber(const QString &text)
{
    constexpr int kShortest = 8;
    const auto isDigit = [](QChar character) { return character >= u'0' && character <= u'9'; };
    const QString behind = mid(text, inStr(text, u"*"_qs) + 1, kShortest + 1);
    const auto digits = std::find_if_not(behind.begin(), behind.end(), isDigit) - behind.begin();
    const QString number = left(behind, static_cast<int>(digits));
    const bool valid = digits >= kShortest && number.count(u'0') < digits;
    return valid ? number : QString();
}
