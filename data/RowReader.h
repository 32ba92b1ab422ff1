#pragma once

#include "data/Recordset.h"

#include <QHash>

/// The SQL of a recordset: finds single rows of a query in its order, and all of them.
///
/// The table's own order is the order of the key, so there each step is one look-up that an index
/// answers. A sorted query keeps a list of its keys, read at the first step.
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
    int count();
    /// Place of the key's row, from 1.
    int position(qint64 key);

    /// Sorts from now on by a column of the query.
    void sort(const QString &column);
    /// Place of a column among the query's, from 0; brackets and case don't count.
    /// @throws RuntimeFailure when it is none of them.
    int columnIndex(const QString &column) const;
    /// Forgets the list of keys.
    void refresh() { list_.reset(); }
    /// Lets a new row follow behind the others until the next refresh().
    void append(qint64 key);

    const Query &query() const { return query_; }
    bool reads(const Connection *connection, const Query &query) const
    {
        return connection_.get() == connection && query_ == query;
    }
    Connection &connection() { return *connection_; }

private:
    struct List {
        std::vector<qint64> keys;
        QHash<qint64, std::size_t> places;
        void append(qint64 key);
    };
    std::optional<RecordsetRow> stepByKey(const Step &step);
    std::optional<RecordsetRow> stepInList(const Step &step);
    const List &list();
    QString select(const QString &what, const QString &condition) const;
    QString order() const;
    bool isRowNumber(const QString &column);
    QString source() const;

    std::shared_ptr<Connection> connection_;
    Query query_;
    QString columns_; ///< key and columns, as SQL
    bool sorted_ = false;
    std::optional<List> list_;
};
