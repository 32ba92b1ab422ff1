#pragma once

#include <QString>

#include <memory>

class Connection;

/// The whole hours in which a door registers people in and out.
struct DoorHours {
    int TimeInStart = 9;
    int TimeInStop = 22;
    int TimeOutStart = 18;
    int TimeOutStop = 22;

    friend bool operator==(const DoorHours &, const DoorHours &) = default;
};

/// The hours of a door; those above for one that is not in the table. It stands ready for a screen
/// that asks.
/// @throws RuntimeFailure when the door's row holds something else than numbers.
DoorHours doorHours(std::shared_ptr<Connection> connection, const QString &KeyNummer);
