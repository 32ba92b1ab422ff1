#pragma once

struct sqlite3;

/// Gives a connection what the engine lacks:
/// - NOCASE by the rules of the tables' text: case doesn't count, for Latin letters beyond A to Z
///   neither, nor do trailing blanks; Æ Ä Ø Ö Å come behind Z in this order;
/// - dato(text), a value to sort [Gyldig fra] and [Gyldig til] by: a whole number for a date
///   (see readStoredDay), the text itself, which sorts behind all numbers, for anything else;
/// - sortkey(value), bytes that order as the values do in a sorted column (byte by byte, the
/// shorter
///   first): nothing, then numbers by their value, then texts as NOCASE has them, then bytes. Of
///   texts and bytes the first 100 characters count;
/// - contains_text(needle, value, value ...): 1 when the text of any of the values holds the
/// needle,
///   else 0. Case doesn't count for A to Z and the letters of Latin-1 (Æ, Ø, Å, Ä, Ö, É ...);
///   numbers are held as decimals, and an empty needle always is. For filters over whole tables:
///   it allocates nothing.
///
/// None of them may be used by an index: other programs open the file without them.
void addEngineFunctions(sqlite3 *database);
