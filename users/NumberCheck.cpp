#include "users/NumberCheck.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "users/StoredDays.h"

namespace {

/// The typed name wins; a missing one comes from the catalogue. A name that stands there already
/// is not written again: going through the form must not wait for the disk, or another PC.
void matchName(Recordset &catalogue, const QString &column, QString &name)
{
    const QString known = catalogue.text(column);
    if (name.isEmpty()) {
        name = known;
    } else if (name != known) {
        catalogue.setValue(column, name);
    }
}

} // namespace

NumberCheck::NumberCheck(Module1 &module, Recordsets &recordsets, Operator &person, Clock &clock)
    : module_(module), recordsets_(recordsets), person_(person), clock_(clock)
{
}

void NumberCheck::matchCatalogue(UserEntry &entry)
{
    Recordset &catalogue = recordsets_.rsKatalog;
    if (!catalogue.findFirst(QStringLiteral("Bruker"), entry.number)) {
        return;
    }
    matchName(catalogue, QStringLiteral("Etternavn"), entry.etternavn);
    matchName(catalogue, QStringLiteral("Fornavn"), entry.fornavn);
    catalogue.update();
}

void NumberCheck::choosePeriod(UserEntry &entry)
{
    const ScreenTexts &texts = module_.texts;
    bool NyePeriode = true;
    NyePeriode = asksForNewPeriod(recordsets_.rsBrukereKey, QStringLiteral("KeyBruker"),
                                  texts.brukerRegistrert, NyePeriode, entry);
    NyePeriode = asksForNewPeriod(recordsets_.rsVisNyeBrukere, QStringLiteral("Bruker"),
                                  texts.brukerVenter, NyePeriode, entry);
    if (NyePeriode) {
        // The account of an earlier period is not carried over.
        entry.konto = texts.gjest;
        entry.status = QStringLiteral("NY");
        entry.from = clock_.now().date();
        entry.to = entry.from.addDays(kGuestDays);
    }
}

bool NumberCheck::asksForNewPeriod(Recordset &rows, const QString &column, const QString &question,
                                   bool before, UserEntry &entry)
{
    rows.requery();
    if (!rows.findFirst(column, entry.number)) {
        return before;
    }
    // Read before the question: timers go on behind it, and they open the shared sets anew.
    const QString konto = rows.text(QStringLiteral("Konto"));
    const QString status = rows.text(QStringLiteral("Status"));
    const QString from = rows.text(QStringLiteral("Gyldig fra"));
    const QString to = rows.text(QStringLiteral("Gyldig til"));
    if (person_.messageBox(question, QString(), Buttons::OkCancel) == Answer::Ok) {
        return true;
    }
    if (!konto.isEmpty()) {
        entry.konto = konto;
    }
    if (!status.isEmpty()) {
        entry.status = status;
    }
    if (!from.isEmpty()) {
        entry.from = storedDay(from);
    }
    if (!to.isEmpty()) {
        entry.to = storedDay(to);
    }
    return false;
}
