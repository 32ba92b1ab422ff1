#pragma once

#include "data/Recordset.h"
#include "platform/Tries.h"

#include <QAbstractTableModel>

#include <chrono>
#include <functional>
#include <map>
#include <memory>

class Operator;
class RowList;

/// The rows of a recordset, for every grid of the program.
///
/// Rows are known by number: the first are there when show() returns, the others follow slice by
/// slice on the clock's timer. Their values are read when a view asks for them, a window of rows at
/// a time, and only a few windows are kept. So a million rows cost what is in sight. While the file
/// is in other hands nothing new is read, and everything is tried again by itself.
///
/// Where cells may be edited the changes gather in the recordset until saveEdit(): as long as one
/// row is being changed no other can be.
class RecordsetModel : public QAbstractTableModel {
    Q_OBJECT
public:
    struct Column {
        QString heading = {}; ///< empty: the column's own name
        Qt::Alignment alignment = Qt::AlignLeft;
        bool isEditable = false;
        bool wraps = false; ///< keeps its line breaks; elsewhere each becomes a blank
        std::function<QString(const QString &)> shownAs = {}; ///< of the value; none: as it stands
    };

    /// The operator is told of a file that stays unreadable.
    RecordsetModel(Clock &clock, Operator &person, QObject *parent = nullptr);
    ~RecordsetModel() override;

    /// When what is shown gives way: at once, to the first rows that are known, or to all of them,
    /// so that whoever stands far down in the same table stays there meanwhile.
    enum class GivesWay { AtOnce, ToFirstRows, ToAllRows };
    /// Shows the set's rows from now on, in its order and by its search; the set must outlive the
    /// model or be replaced by another show(). Rows of another query, order and search apart, give
    /// way at once.
    /// @throws RuntimeFailure when the set is not open; what was shown stays.
    void show(Recordset &rows, GivesWay when = GivesWay::ToFirstRows);
    /// Shows no rows and no columns, as it does by itself soon after the set was closed.
    void showNothing();
    /// Headings and rights from the left; columns behind these have none.
    void setColumns(std::vector<Column> columns);
    /// Tells whether somebody types in a cell: that long, and as long as a row has changes, the
    /// rows stay as they are shown.
    void setTypingTest(std::function<bool()> isTyping) { isTyping_ = std::move(isTyping); }
    /// An empty last row, in which a new one can be typed.
    void setAddsRows(bool adds);

    /// More rows will follow by themselves.
    bool isReading() const { return reading_ != nullptr; }
    /// What was found so far is all there is; of a set that was not shown yet nothing is.
    void stopReading();
    /// Nothing is read any more, since the file is to be left alone.
    void rest();

    /// What the last show() asked for is what is shown.
    bool showsLatest() const { return !reading_ || list_ == reading_; }

    /// What the rows shown were asked for by: order and search may be others than the set's until
    /// its own rows are shown.
    Query shownQuery() const;

    /// Rows of the set, the empty one left out.
    int recordCount() const { return rows_; }
    /// Names the row for good; 0 for the empty row and for none.
    qint64 bookmark(int row) const;
    /// -1 when the row is not shown, or not yet.
    int rowOf(qint64 bookmark) const;
    /// The row's value in a column of the set, as text; empty when it is gone.
    QString text(int row, int column) const;
    const QStringList &columns() const { return columns_; }
    bool isNewRow(int row) const { return addsRows_ && row == rows_; }

    /// The row with changes that are not saved; -1 without any.
    int editedRow() const { return edited_; }
    /// Writes the changed row. A new row takes its place behind the others.
    /// @throws RuntimeFailure when it cannot be written; the changes stay.
    void saveEdit();
    /// Drops the changes.
    void cancelEdit();
    /// The set stands on the row, as the grid shows it. So whoever changes or deletes the row has
    /// seen what he does it to, and a file in other hands does not keep him from typing.
    /// @throws RuntimeFailure when it is not shown yet and cannot be read, or is gone.
    void standOn(int row);
    /// Changes a column without a cell's editor, as a new row's defaults are.
    void setValue(int column, const QVariant &value);
    /// The set stands on the row as the file has it now, and so it is shown; without the file it
    /// stays as it was.
    void readAgain(int row);
    /// Deletes the row.
    /// @throws RuntimeFailure when it cannot be deleted, or is another than was shown.
    void deleteRow(int row);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Nothing: a letter typed in a grid would walk through every row of the file. The search line
    /// is there for that.
    QModelIndexList match(const QModelIndex &, int, const QVariant &, int,
                          Qt::MatchFlags) const override
    {
        return {};
    }

signals:
    /// More rows are known, or all are; or some are gone.
    void readOn();
    /// The first cell of a new row has been changed: its other columns can be given now.
    void newRowBegun(int column);
    /// The changes of a row have been saved, or dropped.
    void editEnded();

private:
    static constexpr int kWindow = 64;       ///< rows read at once
    static constexpr std::size_t kKept = 12; ///< windows

    using Window = std::map<int, QVariantList>; ///< by row
    const QVariantList &values(int row) const;
    RecordsetRow rowAsShown(int row) const { return {bookmark(row), values(row)}; }
    const Window &window(int number) const;
    void forgetWindows(int fromRow = 0);
    bool isHeld() const { return edited_ >= 0 || (isTyping_ && isTyping_()); }
    void tick();
    void takeOver();
    void takeOverWhenKnown();
    void takeRows();
    void endShown();
    void insertListed();
    void removeGone();
    void removeShown(int first, int last);
    void beginEdit(int row);
    void endEdit();
    void lookAgain(std::chrono::milliseconds after) const;
    Column column(int place) const;

    Operator &person_;
    Tries tries_;
    std::function<bool()> isTyping_;
    std::unique_ptr<Timer> slices_;
    Recordset *set_ = nullptr;
    std::shared_ptr<RowList> list_;    ///< shown
    std::shared_ptr<RowList> reading_; ///< not complete: list_, or what will take its place
    GivesWay givesWay_ = GivesWay::ToFirstRows;
    int rows_ = 0;
    bool addsRows_ = false;
    int edited_ = -1;
    QStringList columns_;
    std::vector<Column> layout_;
    mutable std::map<int, Window> windows_; ///< by number
    mutable std::vector<qint64> gone_;      ///< rows that were listed and are not there any more
    mutable bool unreadable_ = false; ///< the last window could not be read: until the next tick
};
