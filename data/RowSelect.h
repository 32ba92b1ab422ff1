#pragma once

#include "data/Recordset.h"

/// The SQL of a query: its rows, their columns, and what they are ordered by.
class RowSelect {
public:
    explicit RowSelect(Query query);

    const Query &query() const { return query_; }
    /// A column that numbers the rows sorts by their key, however many rows there are.
    void sortBy(const QString &column, bool numbersRows)
    {
        query_.sort = column;
        inKeyOrder_ = numbersRows;
    }
    void lookFor(const QString &text) { query_.search = text; }

    /// Select of the rows that the filter leaves, and the search with it unless it is left out.
    enum class Search { Applied, LeftOut };
    QString sql(const QString &what, const QString &condition = {},
                Search search = Search::Applied) const;
    /// Values for the "?" of sql(), to stand before those of the condition.
    QVariantList values(Search search = Search::Applied) const;

    QString source() const;
    QString key() const;
    /// Key and columns.
    QString columns() const;
    /// What the rows are ordered by, before their key; empty for the order of the key.
    QString order() const;
    /// True for rows that hold the text looked for; its one "?" is the text.
    QString searchTest() const;

private:
    Query query_;
    bool inKeyOrder_ = false;
};
