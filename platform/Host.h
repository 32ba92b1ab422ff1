#pragma once

#include <QString>
#include <QStringList>

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
    /// The serial ports that the machine has, by name, for the operator to choose from.
    virtual QStringList serialPorts() const = 0;
    /// Starts the system's own program that tells of the machine, and does not wait for it; false
    /// when there is none, or it does not start.
    virtual bool startSystemInformation() const = 0;
};
