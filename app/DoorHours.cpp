#include "app/DoorHours.h"

#include "data/Connection.h"
#include "data/Recordset.h"
#include "platform/Text.h"

#include <cmath>
#include <utility>

DoorHours doorHours(std::shared_ptr<Connection> connection, const QString &KeyNummer)
{
    Recordset doors;
    doors.open(std::move(connection),
               {.source = QStringLiteral("KEYTable"),
                .columns = {QStringLiteral("KeyNummer"), QStringLiteral("TimeInStart"),
                            QStringLiteral("TimeInStop"), QStringLiteral("TimeOutStart"),
                            QStringLiteral("TimeOutStop")}});
    if (!doors.findFirst(QStringLiteral("KeyNummer"), KeyNummer)) {
        return {};
    }
    const auto hour = [&](const QString &column) {
        return static_cast<int>(std::lrint(toNumber(doors.text(column))));
    };
    return {.TimeInStart = hour(QStringLiteral("TimeInStart")),
            .TimeInStop = hour(QStringLiteral("TimeInStop")),
            .TimeOutStart = hour(QStringLiteral("TimeOutStart")),
            .TimeOutStop = hour(QStringLiteral("TimeOutStop"))};
}
