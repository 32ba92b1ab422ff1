// The door lists the numbers that it holds, with a slot mark behind those of its administrators:
//
//   *91234567
//   *92345678-2

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/Families.h"
#include "inbound/Interpretation.h"
#include "platform/Text.h"

namespace {

// Every cut of the working text keeps so much and no more.
constexpr int kKept = 200;
// Users whom this PC didn't register itself are taken to stay for so long.
constexpr int kDaysValid = 7;

/// The first mark in what remains decides, though it may be that of a later user, and stays for all
/// users that follow.
void readMark(Interpretation &record)
{
    const QString text = record.text();
    if (const int dash = inStr(text, u"-"_qs); dash > 0) {
        record.StatusSuffix = u" A"_qs + mid(text, dash + 1, 1);
    }
}

void writeUser(Interpretation &record, const QString &CatalogKey)
{
    Recordset &users = record.recordsets.rsBrukereAll;
    // Other families write the word in small letters; existing files hold both.
    const QString status = u"AKTIV"_qs + record.StatusSuffix;
    const Interpretation::Lookup user = record.findUserOnDoor(CatalogKey);
    if (user == Interpretation::Lookup::Hit) {
        record.change(users, {{u"Status", status}});
    }
    if (user != Interpretation::Lookup::None) {
        return;
    }
    const QString format = u"d/M/yyyy"_qs;
    record.add(users, {{u"KeyNummer", record.module.SenderNumber},
                       {u"KeyBruker", CatalogKey},
                       {u"Status", status},
                       {u"Gyldig fra", record.today.toString(format)},
                       {u"Gyldig til", record.today.addDays(kDaysValid).toString(format)},
                       {u"Konto", u"Hentet"_qs}});
}

} // namespace

bool saysUserList(const Interpretation &record)
{
    const QString text = record.text();
    return holds(text, u"*"_qs) && !holds(text, u"/"_qs) && !holds(text, u"Adminis"_qs);
}

void readUserList(Interpretation &record)
{
    while (saysUserList(record)) {
        const QString text = record.text();
        const QString LogCandidate = starredNumber(text);
        // Four characters go with each pass, wherever the "*" stands: so a user may be read twice,
        // and finds the row of the first time.
        record.setText(mid(text, 5, kKept));
        readMark(record);
        if (!LogCandidate.isEmpty()) {
            writeUser(record, record.catalogKey(LogCandidate));
        }
    }
}
