#include "users/NumberCheck.h"

#include "data/Dates.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "users/Numbers.h"

#include <QCoreApplication>

#include <algorithm>

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

void takeDay(const QString &text, QDate &day, QString &unread)
{
    if (text.isEmpty()) {
        return;
    }
    const std::optional<QDate> read = readStoredDay(text);
    day = read.value_or(day);
    unread = read ? QString() : text;
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

bool NumberCheck::choosePeriod(UserEntry &entry)
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
        entry.unreadFrom.clear();
        entry.unreadTo.clear();
    }
    return NyePeriode;
}

QString NumberCheck::help(const QString &number) const
{
    const auto words = [](const char *text) {
        return QCoreApplication::translate("NumberCheck", text);
    };
    const auto length = static_cast<int>(number.size());
    const QString digits = number.startsWith(u'+') ? number.mid(1) : number;
    if (length == 0 || number == module_.dialPrefix()) {
        return {};
    }
    if (!std::ranges::all_of(digits, [](QChar each) { return each >= u'0' && each <= u'9'; })) {
        return words("Nummeret har tegn som ikke er siffer.");
    }
    if (!number.startsWith(u'+')) {
        return words("Uten «+» og landkode mister nummeret de tre første sifrene.");
    }
    if (length < kShortestNumber) {
        return words("Siffer som mangler: %1").arg(kShortestNumber - length);
    }
    if (length > kLongestNumber) {
        return words("Siffer for mye: %1").arg(length - kLongestNumber);
    }
    const Recordset &catalogue = recordsets_.rsKatalog;
    if (!recordsets_.rsKatalog.findFirst(QStringLiteral("Bruker"), number)) {
        return words("Nummeret står ikke i katalogen.");
    }
    const QStringList names{catalogue.text(QStringLiteral("Fornavn")),
                            catalogue.text(QStringLiteral("Etternavn"))};
    return words("I katalogen: %1").arg(names.join(u' ').trimmed());
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
    takeDay(from, entry.from, entry.unreadFrom);
    takeDay(to, entry.to, entry.unreadTo);
    return false;
}
