#include "users/StoredDays.h"

#include "data/Dates.h"
#include "platform/RuntimeFailure.h"

#include <QCoreApplication>

namespace {

QDate orFail(const std::optional<QDate> &day, const QString &text)
{
    if (!day) {
        throw RuntimeFailure(
            QCoreApplication::translate("StoredDays", "Teksten er ikke en dato: %1").arg(text));
    }
    return *day;
}

} // namespace

QDate storedDay(const QString &text)
{
    return orFail(readStoredDay(text), text);
}

QDate regionalDay(const QString &text, const QString &dateFormat)
{
    return orFail(readDay(text, dateFormat), text);
}
