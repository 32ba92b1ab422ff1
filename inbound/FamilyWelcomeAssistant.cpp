// The door takes this PC's modem as one of its assistants. These words are the only ones that make
// a door, of whoever sends them.

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "platform/Text.h"

bool saysWelcomeAssistant(const Interpretation &record)
{
    return holds(record.text(), u"Velkommen som NY Assistent"_qs);
}

void readWelcomeAssistant(Interpretation &record)
{
    const QString level = u"4"_qs;
    Recordset &doors = record.recordsets.rsKeyAll;
    const Interpretation::Lookup door = record.findDoor();
    if (door == Interpretation::Lookup::Hit) {
        record.change(doors, {{u"KeySikkerhet", level}});
    } else if (door == Interpretation::Lookup::None) {
        record.add(doors, {{u"KeyNummer", record.module.SenderNumber},
                           {u"KeyNavn", u"?"_qs},
                           {u"KeySikkerhet", level}});
    }
}
