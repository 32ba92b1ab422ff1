#include "users/UserOperations.h"

#include "data/Dates.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLink.h"
#include "platform/Clock.h"
#include "platform/Rules.h"
#include "platform/Text.h"
#include "users/Commands.h"

bool UserOperations::SlettBruker(const UserEntry &entry)
{
    modem_.pace.hurry();
    bool isWaiting = false;
    kept([&] { isWaiting = toNumber(entry.id) < kNoWaitingRow; });
    if (isWaiting) {
        kept([&] { deleteWaitingPeriod(entry.id); });
        return true;
    }

    // A search that fails has found nobody: it must not end on the row of somebody else.
    bool isOnDoor = false;
    Recordset &users = recordsets_.rsBrukereKey;
    kept([&] { isOnDoor = users.findFirst(QStringLiteral("KeyBruker"), entry.number); });
    if (isOnDoor) {
        deleteFromDoor(entry);
    }
    return isOnDoor;
}

/// The door has never heard of this period, so nothing is sent.
void UserOperations::deleteWaitingPeriod(const QString &id)
{
    Recordset &rows = recordsets_.rsVisNyeBrukere;
    if (rows.findFirst(QStringLiteral("ID"), id)) {
        rows.remove();
    }
}

/// With rsBrukereKey on the user's row.
void UserOperations::deleteFromDoor(const UserEntry &entry)
{
    Recordset &users = recordsets_.rsBrukereKey;
    const QDate today = clock_.now().date();
    // The delete command of a user that the door has not confirmed is swept away again below.
    QString state = QStringLiteral("UNSENT");
    skipped({
        [&] {
            if (same(users.text(QStringLiteral("Status")), QStringLiteral("NY"))) {
                state = QStringLiteral("SLETTET");
                users.remove();
            } else {
                markForDeletion(entry, today);
            }
        },
        [&] {
            modem_.queue.queueDoorCommand(recordsets_.doorNumber(), recordsets_.doorName(),
                                          deleteCommand(entry.number, module_.CountryCode), today,
                                          state);
        },
        [&] { recordsets_.OpenRecordsets(); },
        [&] {
            if (state == QStringLiteral("SLETTET")) {
                withdrawBareRegistration(entry.number);
            }
        },
        [&] { recordsets_.OpenRecordsets(); },
        [&] { sweepQueue(); },
    });
}

/// The row stays until the door's report removes it.
void UserOperations::markForDeletion(const UserEntry &entry, const QDate &today)
{
    Recordset &users = recordsets_.rsBrukereKey;
    users.setValue(QStringLiteral("Status"), QStringLiteral("Slett"));
    users.setValue(QStringLiteral("Gyldig fra"), dayText(entry.from));
    users.setValue(QStringLiteral("Gyldig til"), dayText(today));
    if (!entry.konto.isEmpty()) {
        users.setValue(QStringLiteral("Konto"), entry.konto);
    }
    users.update();
}

/// A register command always has a period or a balance behind the number, so this one finds none
/// of them: a command that waits goes to the door all the same, and the door's report brings the
/// user back. That is required. It finds only a bare text of that form, for whatever door.
void UserOperations::withdrawBareRegistration(const QString &number)
{
    Recordset &outbox = recordsets_.rsSmsOutbox;
    if (outbox.findFirst(QStringLiteral("SMS_Text"),
                         bareRegisterCommand(number, module_.CountryCode))) {
        outbox.setValue(QStringLiteral("CMGS"), QStringLiteral("SLETTET"));
        outbox.update();
    }
}

/// Clears all rows that are marked, whoever marked them.
void UserOperations::sweepQueue()
{
    Recordset &outbox = recordsets_.rsSmsOutbox;
    while (outbox.findFirst(QStringLiteral("CMGS"), QStringLiteral("SLETTET"))) {
        outbox.remove();
    }
}
