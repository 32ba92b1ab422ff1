#pragma once

#include <QString>

// How a column is compared with a value, for Recordset::find and for the filter of a Query: as
// padded text, so that neither case nor trailing blanks count.
//
// Numbers and words of state (KeyNummer, CMGS …) hold no letters beyond A to Z and have indexes;
// those match only a comparison of exactly this form. All other texts compare by the collation of
// the connection (EngineFunctions.h).

/// The name of a table or column in SQL, with or without its own brackets before.
QString sqlName(const QString &name);

/// SQL that is true where the column equals the value bound to its one "?".
QString equals(const QString &column);
/// SQL that is true where the column has a value, and it differs.
QString differs(const QString &column);
/// SQL for the form in which a column is compared, for the indexes of the schema.
QString comparedForm(const QString &column);
/// SQL for what a column sorts by, as text: the compared form where there is one, which an index
/// may hold, else the column by its collation.
QString sortedForm(const QString &column);

/// The value to bind in a filter: as it stands.
/// @throws RuntimeFailure when it holds a single quote: criteria have always been quoted texts, and
/// what cannot stand in one must fail, not be looked for.
QString filterValue(const QString &value);
/// The value to bind in a look-up: the same without blanks on either side.
QString criterionValue(const QString &value);
