#pragma once

#include "users/UserEntry.h"

#include <functional>

class Clock;
class Host;
class ModemLink;
class Operator;
class Recordset;
class Recordsets;
struct Module1;

/// Getting users onto the door on screen, and off it. All of these write rows and queue commands;
/// the door hears of them when the queue gets to it.
///
/// None of them handles failures: those end the operation with what was written so far standing,
/// and the caller's rule takes over.
class UserOperations {
public:
    /// VisBrukerTabell refills the user grid.
    UserOperations(Module1 &module, Recordsets &recordsets, ModemLink &modem, Operator &person,
                   Clock &clock, const Host &host, std::function<void()> VisBrukerTabell);

    /// The save behind the button: straight onto the door, or as a waiting period. Hurries the
    /// queue. A waiting period for a door whose number is under 6 characters is dropped without a
    /// word; a user put straight onto such a door is not, and that is how it is to be.
    void save(const UserEntry &entry, bool NewUserMode);
    /// Writes the user's row on the door on screen and queues the register command.
    void RegistrerBruker(const UserEntry &entry);
    /// Stores a waiting period, new or the one on screen, that StartNyBruker moves later.
    void LagreNyBruker(const UserEntry &entry);
    /// Moves at most one waiting period, of any door, onto its door and queues its command; or
    /// lets it change places with a later period of the same user that is there already.
    void StartNyBruker();
    /// Takes the user, or the waiting period, on screen off the door on screen. Failing steps are
    /// left out. Gives false when there was no such user: then nothing needs to be shown anew.
    bool SlettBruker(const UserEntry &entry);

private:
    bool numberIsAccepted(const QString &number);
    void makeSureOfCatalogueRow(const UserEntry &entry);
    void writePeriod(Recordset &rows, const UserEntry &entry);
    void queueCommand(const QString &door, const QString &doorName, const QString &command,
                      const QDate &date);

    bool findOnDoor(const QString &number, const QString &door);
    void changePlaces();
    void moveOntoDoor();
    QString nameOfDoor(const QString &door);

    void deleteWaitingPeriod(const QString &id);
    void deleteFromDoor(const UserEntry &entry);
    void markForDeletion(const UserEntry &entry, const QDate &today);
    void withdrawBareRegistration(const QString &number);
    void sweepQueue();

    Module1 &module_;
    Recordsets &recordsets_;
    ModemLink &modem_;
    Operator &person_;
    Clock &clock_;
    const Host &host_;
    std::function<void()> VisBrukerTabell_;
};
