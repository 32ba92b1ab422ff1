#include "platform/qt/QtSettingsStore.h"

QtSettingsStore::QtSettingsStore() : settings_(QStringLiteral("Lukora"), QStringLiteral("Lukora"))
{
    settings_.beginGroup(QStringLiteral("Settings"));
}

QString QtSettingsStore::get(const QString &key, const QString &byDefault) const
{
    const QVariant value = settings_.value(storedSpelling(key), byDefault);
    // A hand-written value with a comma reads as a list.
    return value.typeId() == QMetaType::QStringList
               ? value.toStringList().join(QStringLiteral(", "))
               : value.toString();
}

void QtSettingsStore::save(const QString &key, const QString &value)
{
    settings_.setValue(storedSpelling(key), value);
}

QString QtSettingsStore::storedSpelling(const QString &key) const
{
    const QStringList keys = settings_.childKeys();
    for (const QString &stored : keys) {
        if (stored.compare(key, Qt::CaseInsensitive) == 0) {
            return stored;
        }
    }
    return key;
}
