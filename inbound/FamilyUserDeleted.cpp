// The door does not hold a user any more: it has deleted him, or says that it doesn't know him.
// The number stands before the phrase as in FamilyUserAdded.cpp.

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "platform/Text.h"

namespace {

constexpr QStringView kPhrases[] = {
    u"er slettet",   u"finnes ikke", // Norwegian, the first Danish too
    u"findes ikke",                  // Danish
    u"{r borttagen", u"finns inte",  // Swedish, ä being code 123
};

} // namespace

bool saysUserDeleted(const Interpretation &record)
{
    return phrasePosition(record.text(), kPhrases) > 0;
}

void readUserDeleted(Interpretation &record)
{
    QString number;
    record.rule.step([&] {
        const QString text = record.text();
        number = numberBefore(text, phrasePosition(text, kPhrases));
    });
    QString key = record.module.dialPrefix() + number;
    if (record.findPerson(number) == Interpretation::Lookup::Hit) {
        record.rule.step([&] { key = record.recordsets.rsKatalog.text(u"Bruker"_qs); });
    }
    if (record.findUserOnDoor(key) == Interpretation::Lookup::Hit) {
        Recordset &users = record.recordsets.rsBrukereAll;
        // The word is set and the row is gone in the same breath: another PC may see it, no one
        // keeps it.
        record.change(users, {{u"Status", u"Slettet"_qs}});
        record.rule.step([&] { users.remove(); });
    }
}
