#pragma once

#include "data/RowSelect.h"

#include <optional>

class RowList;

/// Reads the rows of a recordset: single ones in the query's order, and all of them.
///
/// The table's own order is the order of the key, so there each step is one look-up that an index
/// answers. A sorted query walks along the list of its rows, read at the first step.
class RowReader {
public:
    /// @throws RuntimeFailure when the query names what the file doesn't have.
    RowReader(std::shared_ptr<Connection> connection, Query query);

    /// Which row is wanted: the first one, in the direction, that meets the criterion.
    struct Step {
        enum Direction { Forward, Backward } direction = Forward;
        std::optional<qint64> start = {}; ///< key of the row to begin at; nothing for the end
        bool startIncluded = false;
        QString criterion = {}; ///< SQL, empty for every row
        QVariantList values = {};
    };
    std::optional<RecordsetRow> step(const Step &step);
    /// The row of a key, whether the filter still holds for it or not.
    std::optional<RecordsetRow> row(qint64 key);
    std::vector<RecordsetRow> rows();
    /// The rows of these keys, in their order; those that are gone are left out.
    std::vector<RecordsetRow> rows(const std::vector<qint64> &keys);
    int count();
    /// Place of the key's row, from 1.
    int position(qint64 key);

    /// Sorts from now on by a column of the query; by none when it is empty.
    void sort(const QString &column);
    /// Looks from now on for a text; for none when it is empty.
    void search(const QString &text);
    /// Place of a column among the query's, from 0; brackets and case don't count.
    /// @throws RuntimeFailure when it is none of them.
    int columnIndex(const QString &column) const;
    /// Forgets the list of rows.
    void refresh() { list_.reset(); }
    /// Lets a new row follow behind the others until the next refresh().
    void append(qint64 key);
    /// The rows by number, begun when somebody asks for it.
    const std::shared_ptr<RowList> &list();

    const Query &query() const { return select_.query(); }
    bool reads(const Connection *connection, const Query &query) const
    {
        return connection_.get() == connection && select_.query() == query;
    }
    Connection &connection() { return *connection_; }

private:
    std::optional<RecordsetRow> stepByKey(const Step &step);
    std::optional<RecordsetRow> stepInList(const Step &step);
    RowList &wholeList();
    bool isSorted() const { return !select_.order().isEmpty(); }
    bool isRowNumber(const QString &column);

    std::shared_ptr<Connection> connection_;
    RowSelect select_;
    std::shared_ptr<RowList> list_;
};
