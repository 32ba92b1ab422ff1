#pragma once

#include <QString>

/// The settings of one user of the machine, as text. Keys don't depend on case.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    virtual QString get(const QString &key, const QString &byDefault) const = 0;
    virtual void save(const QString &key, const QString &value) = 0;
};
