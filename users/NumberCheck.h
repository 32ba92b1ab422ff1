#pragma once

#include "users/UserEntry.h"

class Clock;
class Operator;
class Recordset;
class Recordsets;
struct Module1;

/// What happens when the operator leaves the fields that say who a user is. Both operations change
/// the entry step by step, so that after a failure what was done so far stands in it.
class NumberCheck {
public:
    NumberCheck(Module1 &module, Recordsets &recordsets, Operator &person, Clock &clock);

    /// Brings names and catalogue together. A name that was typed goes into the catalogue at once,
    /// for all doors; a name that is missing comes from there. A number that the catalogue doesn't
    /// know changes nothing.
    void matchCatalogue(UserEntry &entry);
    /// Prepares a new period; asks first when the number is on the door, or waits for it. A refusal
    /// brings the period that is there; of two answers the one about the waiting period decides.
    /// False when the answer was a refusal.
    bool choosePeriod(UserEntry &entry);

    /// For whoever is typing a number: what is missing in it, or whom the catalogue knows by it.
    /// Empty for a number that is not begun.
    QString help(const QString &number) const;

private:
    bool asksForNewPeriod(Recordset &rows, const QString &column, const QString &question,
                          bool before, UserEntry &entry);

    Module1 &module_;
    Recordsets &recordsets_;
    Operator &person_;
    Clock &clock_;
};
