#include "users/UserOperations.h"

#include "data/Dates.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "platform/Host.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"
#include "users/Commands.h"

#include <QCoreApplication>

// The transfer of a waiting period onto its door, on the tick of TimerSEND_SMS.

namespace {

/// The columns of a period that move with it, by the same names in both tables.
const QStringList kPeriodColumns = {QStringLiteral("Gyldig fra"), QStringLiteral("Gyldig til"),
                                    QStringLiteral("TilTid"),     QStringLiteral("FraTid"),
                                    QStringLiteral("Konto"),      QStringLiteral("Saldo")};

QVariantList periodOf(const Recordset &rows)
{
    QVariantList values;
    for (const QString &column : kPeriodColumns) {
        values.append(rows.value(column));
    }
    return values;
}

void setPeriod(Recordset &rows, const QVariantList &values)
{
    for (int i = 0; i < kPeriodColumns.size(); ++i) {
        rows.setValue(kPeriodColumns[i], values[i]);
    }
}

QDate regionalDay(const QString &text, const QString &dateFormat)
{
    const std::optional<QDate> day = readDay(text, dateFormat);
    if (!day) {
        throw RuntimeFailure(
            QCoreApplication::translate("StartNyBruker", "Teksten er ikke en dato: %1").arg(text));
    }
    return *day;
}

/// The period that is on the door starts later than the waiting one, which must go first then.
/// Where one of them has no day to compare, the waiting one waits.
bool startsLater(const QString &present, const QString &waiting)
{
    const auto presentDay = readStoredDay(present);
    const auto waitingDay = readStoredDay(waiting);
    return presentDay && waitingDay && *presentDay > *waitingDay;
}

} // namespace

void UserOperations::StartNyBruker()
{
    Recordset &waiting = recordsets_.rsNyeBrukere;
    waiting.findFirst(QStringLiteral("Status"), QStringLiteral("NY"));
    while (!waiting.eof()) {
        if (!findOnDoor(waiting.text(QStringLiteral("Bruker")),
                        waiting.text(QStringLiteral("KeyNummer")))) {
            moveOntoDoor();
            return;
        }
        if (startsLater(recordsets_.rsBrukereAll.text(QStringLiteral("Gyldig fra")),
                        waiting.text(QStringLiteral("Gyldig fra")))) {
            changePlaces();
            return;
        }
        // From here on rows are taken as they come, whatever their Status: one that is not "NY"
        // is moved all the same, only without a command.
        waiting.moveNext();
    }
}

bool UserOperations::findOnDoor(const QString &number, const QString &door)
{
    return recordsets_.rsBrukereAll.findFirst(QStringLiteral("KeyBruker"), number,
                                              {{QStringLiteral("KeyNummer"), door}});
}

/// The later period goes back among the waiting ones. Nothing is sent: the next run finds the
/// earlier one free to move.
void UserOperations::changePlaces()
{
    Recordset &waiting = recordsets_.rsNyeBrukere;
    Recordset &present = recordsets_.rsBrukereAll;
    const QVariant Etternavn = waiting.value(QStringLiteral("Etternavn"));
    const QVariant Fornavn = waiting.value(QStringLiteral("Fornavn"));
    // A failure between deleting in one table and writing into the other would lose the period.
    recordsets_.atOnce([&] {
        waiting.addNew();
        waiting.setValue(QStringLiteral("KeyNummer"), present.value(QStringLiteral("KeyNummer")));
        waiting.setValue(QStringLiteral("Bruker"), present.value(QStringLiteral("KeyBruker")));
        setPeriod(waiting, periodOf(present));
        waiting.setValue(QStringLiteral("Status"), QStringLiteral("NY"));
        waiting.setValue(QStringLiteral("Etternavn"), Etternavn);
        waiting.setValue(QStringLiteral("Fornavn"), Fornavn);
        waiting.update();
        present.remove();
    });
    VisBrukerTabell_();
}

void UserOperations::moveOntoDoor()
{
    Recordset &waiting = recordsets_.rsNyeBrukere;
    Recordset &present = recordsets_.rsBrukereAll;
    const QString door = waiting.text(QStringLiteral("KeyNummer"));
    const QString Status = waiting.text(QStringLiteral("Status"));
    const QString GyldigFra = waiting.text(QStringLiteral("Gyldig fra"));
    const QString GyldigTil = waiting.text(QStringLiteral("Gyldig til"));
    const QVariantList period = periodOf(waiting);
    UserEntry user;
    user.number = waiting.text(QStringLiteral("Bruker"));
    user.fraTid = waiting.text(QStringLiteral("FraTid"));
    user.tilTid = waiting.text(QStringLiteral("TilTid"));
    user.saldo = waiting.text(QStringLiteral("Saldo"));

    // Every other reader takes the stored day/month/year as it stands; here the system's own order
    // of day and month counts.
    QString command;
    QString doorName;
    const auto compose = [&] {
        user.from = regionalDay(GyldigFra, host_.dateFormat());
        user.to = regionalDay(GyldigTil, host_.dateFormat());
        command = registerCommand(user, module_.CountryCode);
        doorName = nameOfDoor(door);
    };
    const bool isNew = same(Status, QStringLiteral("NY"));
    bool isComposed = false;
    recordsets_.atOnce([&] {
        kept([&] {
            compose();
            isComposed = true;
        });
        waiting.remove();
        if (findOnDoor(user.number, door)) {
            present.setValue(QStringLiteral("Status"), Status);
        } else {
            present.addNew();
            present.setValue(QStringLiteral("KeyNummer"), door);
            present.setValue(QStringLiteral("KeyBruker"), user.number);
            present.setValue(QStringLiteral("Status"), QStringLiteral("Ny"));
        }
        setPeriod(present, period);
        present.update();
        if (isNew && isComposed) {
            queueCommand(door, doorName, command, user.from);
        }
    });
    VisBrukerTabell_();
    if (isNew && !isComposed) {
        compose(); // fails: the period stands on the door all the same
    }
}

QString UserOperations::nameOfDoor(const QString &door)
{
    Recordset &doors = recordsets_.rsKeyAll;
    return doors.findFirst(QStringLiteral("KeyNummer"), door)
               ? doors.text(QStringLiteral("KeyNavn"))
               : QString();
}
