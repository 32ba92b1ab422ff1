#pragma once

#include "platform/Host.h"

/// A short date format of any locale as one with two-digit day and month and four-digit year, in
/// the locale's order and with its separators; "dd.MM.yyyy" where it lacks one of the three or
/// writes the month as a word.
QString fullDateFormat(const QString &shortFormat);

/// This machine and the person logged on to it.
class QtHost : public Host {
public:
    QString userName() const override;
    QString computerName() const override;
    QString dateFormat() const override;
    QString comPortDevice(int number) const override;
    QStringList serialPorts() const override;
    bool startSystemInformation() const override;
};
