#include "users/DoorStepper.h"

#include "data/Recordset.h"

QString stepDoor(Recordset &rsKeyAllowed, DoorStep step)
{
    if (step == DoorStep::Down) {
        if (!rsKeyAllowed.bof()) {
            rsKeyAllowed.movePrevious();
        }
        if (rsKeyAllowed.bof()) {
            rsKeyAllowed.moveLast();
        }
    } else {
        if (!rsKeyAllowed.eof()) {
            rsKeyAllowed.moveNext();
        }
        if (rsKeyAllowed.eof()) {
            rsKeyAllowed.moveFirst();
        }
    }
    return rsKeyAllowed.isEmpty() ? QString() : rsKeyAllowed.text(QStringLiteral("KeyNummer"));
}
