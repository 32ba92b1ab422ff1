#pragma once

struct sqlite3;

/// Gives a connection what the engine lacks:
/// - NOCASE by the rules of the tables' text: case doesn't count, for Latin letters beyond A to Z
///   neither, nor do trailing blanks; Æ Ä Ø Ö Å come behind Z in this order;
/// - dato(text), a value to sort [Gyldig fra] and [Gyldig til] by: a whole number for a date
///   (see readStoredDay), the text itself, which sorts behind all numbers, for anything else.
///
/// Neither may be used by an index: other programs open the file without them.
void addEngineFunctions(sqlite3 *database);
