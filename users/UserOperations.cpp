#include "users/UserOperations.h"

#include "data/Dates.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLink.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "users/Balance.h"
#include "users/Commands.h"
#include "users/Numbers.h"

namespace {

constexpr int kShortestDoorNumber = 6;

QString orQuestionMark(const QString &name)
{
    return name.isEmpty() ? QStringLiteral("?") : name;
}

void setUnlessEmpty(Recordset &rows, const QString &column, const QString &text)
{
    if (!text.isEmpty()) {
        rows.setValue(column, text);
    }
}

} // namespace

UserOperations::UserOperations(Module1 &module, Recordsets &recordsets, ModemLink &modem,
                               Operator &person, Clock &clock, const Host &host,
                               std::function<void()> VisBrukerTabell)
    : module_(module),
      recordsets_(recordsets),
      modem_(modem),
      person_(person),
      clock_(clock),
      host_(host),
      VisBrukerTabell_(std::move(VisBrukerTabell))
{
}

void UserOperations::save(const UserEntry &entry, bool NewUserMode)
{
    modem_.pace.hurry();
    if (!NewUserMode) {
        RegistrerBruker(entry);
    } else if (recordsets_.doorNumber().size() >= kShortestDoorNumber) {
        LagreNyBruker(entry);
    }
}

void UserOperations::RegistrerBruker(const UserEntry &entry)
{
    if (!numberIsAccepted(entry.number)) {
        return;
    }
    makeSureOfCatalogueRow(entry);

    const QString door = recordsets_.doorNumber();
    Recordset &rows = recordsets_.rsBrukereKey;
    if (!rows.findFirst(QStringLiteral("KeyBruker"), entry.number)) {
        rows.addNew();
        setUnlessEmpty(rows, QStringLiteral("KeyNummer"), door);
        rows.setValue(QStringLiteral("KeyBruker"), entry.number);
    }
    writePeriod(rows, entry);
    rows.update();

    queueCommand(door, recordsets_.doorName(), registerCommand(entry, module_.CountryCode),
                 entry.from);
}

void UserOperations::LagreNyBruker(const UserEntry &entry)
{
    if (!numberIsAccepted(entry.number)) {
        return;
    }
    makeSureOfCatalogueRow(entry);

    Recordset &rows = recordsets_.rsVisNyeBrukere;
    // The word for no row must not find the period that happens to bear that number.
    const bool isNew = entry.id == QString::number(kNoWaitingRow);
    if (isNew || !rows.findFirst(QStringLiteral("ID"), entry.id)) {
        rows.addNew();
        setUnlessEmpty(rows, QStringLiteral("KeyNummer"), recordsets_.doorNumber());
        setUnlessEmpty(rows, QStringLiteral("Bruker"), entry.number);
    }
    writePeriod(rows, entry);
    rows.setValue(QStringLiteral("Etternavn"), orQuestionMark(entry.etternavn));
    rows.setValue(QStringLiteral("Fornavn"), orQuestionMark(entry.fornavn));
    rows.update();
}

bool UserOperations::numberIsAccepted(const QString &number)
{
    if (number.size() >= kShortestNumber && number.size() <= kLongestNumber) {
        return true;
    }
    const ScreenTexts &texts = module_.texts;
    if (person_.messageBox(texts.sjekkNummer, QString(), Buttons::OkCancel) == Answer::Cancel) {
        return false;
    }
    if (number.size() < kShortestNumber) {
        person_.messageBox(texts.minstElleve, QString(), Buttons::Ok);
        return false;
    }
    return true;
}

/// A row that is there is left alone: the number check keeps its names.
void UserOperations::makeSureOfCatalogueRow(const UserEntry &entry)
{
    Recordset &catalogue = recordsets_.rsKatalog;
    if (catalogue.findFirst(QStringLiteral("Bruker"), entry.number)) {
        return;
    }
    catalogue.addNew();
    catalogue.setValue(QStringLiteral("Bruker"), entry.number);
    catalogue.setValue(QStringLiteral("BrukerKort"), shortNumber(entry.number));
    catalogue.setValue(QStringLiteral("Etternavn"), orQuestionMark(entry.etternavn));
    catalogue.setValue(QStringLiteral("Fornavn"), orQuestionMark(entry.fornavn));
    catalogue.update();
}

/// What registering and storing write alike, on new rows and over old ones: the period that stood
/// there is gone.
void UserOperations::writePeriod(Recordset &rows, const UserEntry &entry)
{
    setUnlessEmpty(rows, QStringLiteral("Status"), entry.status);
    rows.setValue(QStringLiteral("Gyldig fra"), dayText(entry.from));
    rows.setValue(QStringLiteral("Gyldig til"),
                  hasBalance(entry.saldo) ? kNoEnd : dayText(entry.to));
    rows.setValue(QStringLiteral("FraTid"), entry.fraTid);
    rows.setValue(QStringLiteral("TilTid"), entry.tilTid);
    rows.setValue(QStringLiteral("Saldo"), entry.saldo);
    setUnlessEmpty(rows, QStringLiteral("Konto"), entry.konto);
}

/// The queue sends in the order of the dates: a period that starts earlier goes out first.
void UserOperations::queueCommand(const QString &door, const QString &doorName,
                                  const QString &command, const QDate &date)
{
    modem_.queue.queueDoorCommand(door, doorName, command, date, QStringLiteral("UNSENT"));
}
