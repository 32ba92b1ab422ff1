#pragma once

#include <QString>

class Recordset;

enum class DoorStep { Up, Down };

/// Moves the set of doors one row on or back, past either end to the other one, and gives the
/// number of the door that it stands on then; empty when there is none.
/// @throws RuntimeFailure when the set was never opened.
QString stepDoor(Recordset &rsKeyAllowed, DoorStep step);
