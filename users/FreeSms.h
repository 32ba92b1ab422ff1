#pragma once

#include "modem/OutboundQueue.h"
#include "platform/Operator.h"
#include "users/UserEntry.h"

class CharacterTables;
class Clock;
class ModemLink;
class Recordsets;
struct Module1;

/// The length of a message as it will be handed to the modem, in one piece, and what in it will not
/// arrive as it was written. To a door it is a command.
TextNotes notesOnSms(const QString &text, const CharacterTables &tables, bool isCommand);

/// Messages written by hand. They ask for the text and queue it; a failing step is left out and
/// nothing is said. No tick of TimerSEND_SMS acts while the operator writes.
class FreeSms {
public:
    FreeSms(Module1 &module, Recordsets &recordsets, ModemLink &modem, Operator &person,
            Clock &clock);

    /// To the user in the entry fields. With an empty number field it runs all the same: the row
    /// has no recipient then.
    void toUser(const UserEntry &entry);
    /// To the door on screen: how a unit gets a command that has no button.
    void toDoor();

private:
    void send(OutboundSms sms, bool isCommand);

    Module1 &module_;
    Recordsets &recordsets_;
    ModemLink &modem_;
    Operator &person_;
    Clock &clock_;
};
