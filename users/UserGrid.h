#pragma once

#include "data/Recordset.h"

#include <QStringList>

class Recordsets;
struct Module1;

/// Which users the grid of the main screen shows, under which tabs and in which order. The rows
/// are the recordsets rsVisNyeBrukere and rsVisBrukere.
class UserGrid {
public:
    UserGrid(Module1 &module, Recordsets &recordsets);

    /// Finds the tabs and opens the rows anew, for the door on screen and the tab in GridFilter.
    /// After a failure what was done so far stands.
    void VisBrukerTabell();
    /// Sorts by a column of the grid, counted from 0; a column behind Status leaves the order.
    void sortByColumn(int column);

    /// The column that the rows are sorted by, the first that says so; -1 for none.
    int sortedColumn() const;

    /// Captions of TabStrip1: "Nye", the account words of the door's users, "Alle".
    const QStringList &tabs() const { return tabs_; }
    bool isWaitingTab(const QString &caption) const;
    /// The tab shows waiting periods, and not users.
    bool showsWaiting() const { return mode_ == Mode::Waiting; }
    /// The tab keeps the headings and widths that come with the query.
    bool hasOwnLayout() const { return mode_ != Mode::Balance; }
    /// The set that the grid shows.
    Recordset &rows();

    QString SorteringBrukere = QStringLiteral("Bruker");

private:
    enum class Mode { Waiting = 1, Account = 2, All = 3, Balance = 4 };
    Mode modeOfFilter() const;
    void findTabs();
    void openRows();
    void sort();

    Module1 &module_;
    Recordsets &recordsets_;
    QStringList tabs_;
    Mode mode_ = Mode::Waiting;
};
