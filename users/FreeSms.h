#pragma once

#include "modem/OutboundQueue.h"
#include "users/UserEntry.h"

class Clock;
class ModemLink;
class Operator;
class Recordsets;
struct Module1;

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
    void send(OutboundSms sms);

    Module1 &module_;
    Recordsets &recordsets_;
    ModemLink &modem_;
    Operator &person_;
    Clock &clock_;
};
