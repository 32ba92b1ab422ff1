#pragma once

#include <QString>

#include <vector>

/// A serial port of the machine, and the COM number that it has or would get.
struct ComPort {
    int number = 0;           ///< 1 to 254
    QString name = {};        ///< as the system calls it
    QString description = {}; ///< of what is plugged in there, where it says so
    QString device = {};      ///< what opens it
};

/// What the machine knows of itself and its user.
class Host {
public:
    virtual ~Host() = default;
    /// Empty when the system gives none.
    virtual QString userName() const = 0;
    virtual QString computerName() const = 0;
    /// The system's short date with two-digit day and month and four-digit year, in the form of
    /// QDate::toString, as "dd/MM/yyyy" or "dd.MM.yyyy".
    virtual QString dateFormat() const = 0;
    /// The device behind a COM number (1 to 254). On Windows COM and the number; elsewhere the
    /// link com<number> in the folder "ports" of the program's data directory when it is there,
    /// else /dev/ttyS and the number less one.
    virtual QString comPortDevice(int number) const = 0;
    /// Starts the system's own program that tells of the machine, and does not wait for it; false
    /// when there is none, or it does not start.
    virtual bool startSystemInformation() const = 0;
    /// The serial ports that the machine has now, by number. A port without one of its own, as a
    /// USB port, is offered the lowest free one from 5 on.
    virtual std::vector<ComPort> comPorts() const = 0;
    /// From now on the number stands for this port, one of comPorts().
    /// @throws RuntimeFailure when that cannot be stored.
    virtual void keepComPort(const ComPort &port) const = 0;
};
