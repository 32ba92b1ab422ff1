#pragma once

#include "platform/Host.h"

#include <QMap>

/// A short date format of any locale as one with two-digit day and month and four-digit year, in
/// the locale's order and with its separators; "dd.MM.yyyy" where it lacks one of the three or
/// writes the month as a word.
QString fullDateFormat(const QString &shortFormat);

/// Numbers ports, of which name and device (no link) are given: that of the link which leads to the
/// port, that which its name stands for (ttyS0 is 1, COM3 is 3), or the lowest free one from 5 on.
/// The links are the devices behind each number, empty for one that is not there. Gives the ports
/// by number, without those for which none is left.
std::vector<ComPort> numberedPorts(const std::vector<ComPort> &ports,
                                   const QMap<int, QString> &links);

/// This machine and the person logged on to it.
class QtHost : public Host {
public:
    QString userName() const override;
    QString computerName() const override;
    QString dateFormat() const override;
    QString comPortDevice(int number) const override;
    bool startSystemInformation() const override;
    std::vector<ComPort> comPorts() const override;
    void keepComPort(const ComPort &port) const override;
};
