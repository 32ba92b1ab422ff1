#pragma once

#include "simulator/DoorUnit.h"
#include "simulator/SimulatedModem.h"

#include <QStringList>

/// The world behind the line, put together from words: options of the command line and commands
/// typed while it runs.
class SimulatorConsole {
public:
    /// Prints go line by line, without their ends.
    SimulatorConsole(Clock &clock, const QString &modemNumber,
                     std::function<void(const QString &)> print);

    SimulatedModem &modem() { return modem_; }
    const std::vector<std::unique_ptr<DoorUnit>> &doors() const { return doors_; }

    /// NUMBER:NAME:LANGUAGE, with no, da or sv; perhaps, each behind a colon, the type (310 is
    /// the usual one, mk or argon) and "brief" for short answers.
    /// @throws RuntimeFailure when it is none, or the number is taken.
    void addDoor(const QString &description);
    /// DOOR:NUMBER, a user without an end that the door knows already.
    /// @throws RuntimeFailure when there is no such door, or no number.
    void addUser(const QString &description);
    /// DOOR:NUMBER, the full number that is the door's administrator already.
    /// @throws RuntimeFailure when there is no such door, or no number.
    void addAdministrator(const QString &description);
    void setAnswerDelay(milliseconds delay);

    /// One command of the person at the simulator, as help lists them; a mistake is told in print.
    /// @return false when it is time to leave.
    bool command(const QString &line);

private:
    void help();
    void sendSms(const QString &arguments);
    void setFault(const QString &words);
    void listDoors();
    void callDoor(const QString &arguments);
    void alarm(const QString &arguments);
    DoorUnit *door(const QString &number) const;
    /// The door and the number of DOOR:NUMBER.
    /// @throws RuntimeFailure when there is no such door, or no number.
    std::pair<DoorUnit *, QString> doorAndNumber(const QString &description) const;

    Clock &clock_;
    std::function<void(const QString &)> print_;
    SmsNetwork network_;
    SimulatedModem modem_;
    std::vector<std::unique_ptr<DoorUnit>> doors_;
};
