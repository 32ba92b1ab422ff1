#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class Connection;
class RowList;

/// What a recordset shows: rows of one table or saved query.
///
/// A filter is SQL over the source's columns with a "?" for each of its values; values are bound,
/// never joined in. Compare texts by Criteria.h, so that case and trailing blanks don't count.
struct Query {
    QString source = {};       ///< table or saved query
    QStringList columns = {};  ///< names as the program spells them; case doesn't count
    QString filter = {};       ///< empty for all rows
    QVariantList values = {};  ///< for the "?" of the filter, in order
    QString sort = {};         ///< column to sort by; empty for the table's own order
    QString search = {};       ///< text that some column holds, case ignored; empty for all
    QStringList searched = {}; ///< the columns that the search looks in; empty for all of them
    QString key = QStringLiteral("rowid"); ///< whole number that names a row of the source for good

    bool operator==(const Query &) const = default;
};

/// @throws RuntimeFailure that says that somebody else has changed or deleted the row.
[[noreturn]] void failOnChangedRow();

/// One row of a set, as it was read: for grids and other readers of whole sets.
struct RecordsetRow {
    qint64 bookmark = 0;
    QVariantList values = {}; ///< in the order of Query::columns
};

/// Rows of a query and a place among them: on a row, before the first or behind the last.
///
/// Opening and requerying cost next to nothing: rows are read when the place moves to them, and of
/// a sorted set the list of its rows when the first is. A row keeps the values that it had when the
/// place came to it, until the place moves or requery().
/// Two places are special: a row that is being added (from addNew() to update()), and a row that
/// was just removed; from both, moves go on from where the place was.
///
/// Columns are named without regard to case; an unknown one fails. Every operation fails on a set
/// that was never opened. All failures are RuntimeFailure with the engine's or our own words.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset &&) noexcept;
    Recordset &operator=(Recordset &&) noexcept;

    /// Places the set on its first row, if it has one. On failure the set stays unopened.
    void open(std::shared_ptr<Connection> connection, Query query);
    void close();
    bool isOpen() const;
    /// Reads anew, in the same order, and goes to the first row.
    void requery();
    /// Sorts by a column ("[Gyldig fra]" or "Gyldig fra", case ignored) and goes to the first row.
    /// "Gyldig fra" and "Gyldig til" sort as dates, what is no date behind them as text; all other
    /// texts as text. Rows of like value keep the table's order; so do all when column is empty.
    void sort(const QString &column);
    /// From now on the set has only rows where one of the columns holds the text, case ignored.
    void search(const QString &text);

    bool bof() const;
    bool eof() const;
    /// True when the set has no rows at all.
    bool isEmpty() const;
    int recordCount() const;
    /// Place of the current row counted from 1; 0 when there is none.
    int position() const;

    /// No-op on an empty set.
    void moveFirst();
    void moveLast();
    /// From the last row on to eof(). Fails at eof().
    void moveNext();
    /// From the first row back to bof(). Fails at bof().
    void movePrevious();
    /// Forward from the current row, itself included, to the first row whose column equals value
    /// (case and trailing blanks don't count; leading and trailing blanks of value neither).
    /// Gives false and stands at eof() when there is none; at eof() already it gives false.
    /// @throws RuntimeFailure when value holds a single quote: it could not be asked for.
    bool find(const QString &column, const QString &value);
    /// moveFirst(), unless empty, and find().
    bool findFirst(const QString &column, const QString &value);
    /// findFirst() with leading blanks of value kept: a key of the file, which may have them.
    bool findFirstAsItStands(const QString &column, const QString &value);
    /// From the first row on, the row where all columns match: the search over all doors. The
    /// further values are compared with each hit and no criteria themselves: they keep their
    /// leading blanks, and may hold a single quote.
    bool findFirst(const QString &column, const QString &value,
                   const std::vector<std::pair<QString, QString>> &compared);

    /// The current row's value as text; empty for a column without a value.
    QString text(const QString &column) const;
    QVariant value(const QString &column) const;
    /// Whole current row, or nothing at bof() and eof().
    std::optional<RecordsetRow> row() const;
    /// Reads the whole set in its order; the place stays.
    std::vector<RecordsetRow> rows() const;
    /// The rows of these bookmarks, in their order; those that are gone are left out. The place
    /// stays.
    std::vector<RecordsetRow> rows(const std::vector<qint64> &bookmarks) const;
    /// The set's rows by number, for a grid, which reads it on. The set walks along the same list
    /// when it is sorted; sort(), search() and requery() begin another one.
    std::shared_ptr<RowList> list() const;
    const QStringList &columns() const { return query().columns; }
    const Query &query() const;

    /// Starts a new row; setValue() fills it, update() writes it and stays on it.
    void addNew();
    /// Changes a column of the current (or new) row; nothing is written before update().
    void setValue(const QString &column, const QVariant &value);
    /// Writes the changed columns in one transaction, on disk when it returns. Without changes it
    /// does nothing.
    /// @throws RuntimeFailure when the row was changed or removed by somebody else since it was
    /// read; what stands in the file then stays, and so do the values set here.
    void update();
    /// Drops the values set since the last update().
    void cancelUpdate();
    /// Deletes the current row, with the same check as update().
    void remove();

    /// Names the current row for good; 0 when there is none.
    qint64 bookmark() const;
    /// Goes to the row of a bookmark; eof() when it is gone.
    void setBookmark(qint64 bookmark);
    /// Goes to a row as this set gave it before: by those values update() and remove() tell whether
    /// somebody else has changed it since. Without values it is read. A row that the set stands on
    /// already keeps its own, as read and as set.
    void standOn(const RecordsetRow &row);

private:
    struct Private;
    Private &opened() const;
    Private &settled() const;
    Private &onItsPlace() const;
    std::unique_ptr<Private> d;
};
