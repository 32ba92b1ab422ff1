#pragma once

#include "data/KeyList.h"
#include "data/RowSelect.h"

#include <memory>
#include <vector>

/// The rows of a query by number: their keys in the query's order. Grids know rows so, and sorted
/// recordsets walk along it.
///
/// A million rows take a second or two to list, so the list is read in slices: each is a statement
/// of its own, and whoever else uses the file gets his turn in between. Rows that stand in count()
/// have their final number. In the order of the key or of an index they stand as soon as they are
/// read; any other order is made here once all rows have been read, and comes slice by slice too.
///
/// What is added to the file behind the reading, or removed from it, changes no number here; only
/// append() and remove() do.
class RowList {
public:
    /// Rows that one slice looks at, at the most: some 20 ms of work.
    static constexpr int kSlice = 20'000;

    RowList(std::shared_ptr<Connection> connection, RowSelect select);
    ~RowList();
    /// Another list, complete with the rows that this one has by now: for whoever waits for no
    /// more of them. A set that walks along this one still comes to the last.
    std::shared_ptr<RowList> soFar() const;

    const Query &query() const { return select_.query(); }
    bool isComplete() const { return phase_ == Phase::Complete; }
    /// Reads on by one slice; nothing once the list is complete.
    /// @throws RuntimeFailure with the engine's words; the slice can be tried again.
    void readSlice(int rows = kSlice);
    /// Reads on to the end, however long that takes.
    void readAll();

    /// Rows listed so far.
    int count() const { return static_cast<int>(keys_.size()); }
    /// From 0 to count() - 1.
    qint64 key(int row) const { return keys_[static_cast<std::size_t>(row)]; }
    /// -1 when the key is not among those listed so far.
    int rowOf(qint64 key) const;

    /// A new row follows behind the others, once they are all listed.
    void append(qint64 key);
    void remove(int row);

private:
    RowList(const RowList &listed);
    struct Run;
    struct Place;
    enum class Phase { Listing, Collecting, Merging, Complete };

    bool comesFromAnIndex() const;
    void list(int rows);
    void collect(int rows);
    void merge(int rows);
    void finish();
    /// The next rows in the order of the key, or of an index; true behind the last row.
    bool readByKey(const QString &what, int rows,
                   const std::function<void(const QVariantList &)> &use);
    bool readByIndex(int rows, const std::function<void(const QVariantList &)> &use);
    /// Runs one statement, and counts down the rows wanted; true when it gave fewer.
    bool read(const QString &what, const QString &condition, const QVariantList &behind,
              const QString &order, int &rows,
              const std::function<void(const QVariantList &)> &use);

    std::shared_ptr<Connection> connection_;
    RowSelect select_;
    Phase phase_;
    bool inKeyOrder_;
    KeyList keys_;
    qint64 lastKey_ = 0;           ///< of the row that the next slice begins behind
    QVariant lastValue_;           ///< what that row is ordered by, where an index gives the order
    bool begun_ = false;           ///< there is such a row
    mutable int hint_ = 0;         ///< where rowOf() looks first: walks go from row to row
    std::vector<qint64> appended_; ///< new rows, whether the reading comes to them or not
    std::vector<std::unique_ptr<Run>> runs_; ///< sorted each, to be merged
    std::vector<Place> heads_;               ///< heap of the runs' next rows
};
