#pragma once

#include <QtGlobal>

class Connection;

/// Writes into the catalogue how many doors each person stands on (Tillatelser), and the number
/// without its prefix (BrukerKort: eight characters from the fourth), for everybody who stands on
/// a door; others keep what they have. Numbers with a single quote can be asked for nowhere, and
/// are left out.
///
/// It goes slice by slice, each a transaction of its own: behind is the row of the catalogue that
/// the next slice begins behind, 0 at first.
/// @return whether there is more to count.
/// @throws RuntimeFailure with the engine's words; the slice can be tried again.
bool recountTillatelser(Connection &connection, qint64 &behind);
