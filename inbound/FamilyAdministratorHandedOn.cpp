// The door's administrator place is open to the next caller, so this PC's modem holds it no more.

#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "platform/Text.h"

namespace {

constexpr QStringView kPhrases[] = {
    u"Neste som sender SMS",    // Norwegian
    u"Den næste som sender en", // Danish, with a plain æ
    u" som s{nder SMS",         // Swedish, ä being code 123
};

} // namespace

bool saysAdministratorHandedOn(const Interpretation &record)
{
    // A text that welcomes the administrator as well leaves him in his place.
    return !saysWelcomeAdministrator(record) && phrasePosition(record.text(), kPhrases) > 0;
}

void readAdministratorHandedOn(Interpretation &record)
{
    if (record.findDoor() == Interpretation::Lookup::Hit) {
        record.change(record.recordsets.rsKeyAll, {{u"Admin", u"0"_qs}});
    }
}
