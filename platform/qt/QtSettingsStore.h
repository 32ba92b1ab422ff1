#pragma once

#include "platform/SettingsStore.h"

#include <QSettings>

/// The user's own settings of the program Lukora, in the place where the system keeps such.
class QtSettingsStore : public SettingsStore {
public:
    QtSettingsStore();
    QString get(const QString &key, const QString &byDefault) const override;
    void save(const QString &key, const QString &value) override;

private:
    QString storedSpelling(const QString &key) const;

    QSettings settings_;
};
