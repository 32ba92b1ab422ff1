// The door takes this PC's modem as its administrator.

#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "platform/Text.h"

bool saysWelcomeAdministrator(const Interpretation &record)
{
    return holds(record.text(), u"Velkommen ADMIN."_qs);
}

void readWelcomeAdministrator(Interpretation &record)
{
    // The column holds the administrator's number too, when the door reports it.
    if (record.findDoor() == Interpretation::Lookup::Hit) {
        record.change(record.recordsets.rsKeyAll, {{u"Admin", u"1"_qs}});
    }
}
