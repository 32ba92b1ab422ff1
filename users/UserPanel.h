#pragma once

#include "browsers/RecordsetModel.h"
#include "users/FreeSms.h"
#include "users/NumberCheck.h"
#include "users/UserEntry.h"
#include "users/UserGrid.h"

#include <QWidget>

#include <array>
#include <memory>
#include <optional>

class Host;
class QDateEdit;
class QItemSelection;
class QLineEdit;
class UserOperations;

namespace Ui {
class UserPanel;
}

/// The form for one user, above the grid of the current door's users.
class UserPanel : public QWidget {
    Q_OBJECT
public:
    UserPanel(Module1 &module, Recordsets &recordsets, ModemLink &modem, UserOperations &users,
              Operator &person, Clock &clock, const Host &host, QWidget *parent = nullptr);
    ~UserPanel() override;

    /// Rebuilds tabs and rows of the grid for the door on screen and the tab in GridFilter; the
    /// headings come from the labels of the form. Ends in silence at the first failure, with what
    /// was done so far standing.
    void VisBrukerTabell();
    /// Empties the form: a period user without a name, from today on.
    void CLEAR_INPUT();
    /// Today, and two days on: the period that stands there when the screen comes to the front.
    void refreshDates();
    /// Another door was chosen, or the same again.
    void followDoor();
    /// The tab "Nye", as a click would; its rows come with the next VisBrukerTabell.
    void chooseWaitingTab();
    /// From the next VisBrukerTabell on the grid is sorted so.
    void setSorteringBrukere(const QString &column) { grid_.SorteringBrukere = column; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void connectForm();
    void connectGrid();
    UserEntry entry() const;
    void showEntry(const UserEntry &entry);
    void setNewUserMode(bool newUser);
    void refresh();

    void cmdNyBruker_Click();
    void CommandRegistrerBruker_Click();
    void CommandSlettBruker_Click();
    void focusMoved(QWidget *from, QWidget *to);
    void Txtfields_LostFocus(int index);
    void liftButtons(bool click);
    void setDay(QDateEdit &picker, const QDate &day);
    void markUnread(QDateEdit &picker, const QString &text);
    QString unreadIn(const QDateEdit &picker) const;
    bool daysAreMeant();
    void Txtfields_DblClick();
    void lockStatus(bool locked);
    void DTPickerFrom_Change();
    void Saldo_Change();
    void showBalanceForm(bool balance);
    void highlightPrimaryButton();

    void TabStrip1_Click();
    QString selectedTab() const;
    void showTabs();
    void showRows();
    std::vector<RecordsetModel::Column> columns() const;
    void layOutColumns();
    void widenToDesign();
    void makeRoomForStatus();
    void DataGrid1_Click();
    void DataGrid1_RowChange(const QItemSelection &selected);
    void fillFromRow(int row);
    void forgetRow();
    void keepPlace();
    void backToPlace();

    Module1 &module_;
    Recordsets &recordsets_;
    ModemLink &modem_;
    UserOperations &users_;
    Operator &person_;
    Clock &clock_;
    NumberCheck check_;
    FreeSms freeSms_;
    UserGrid grid_;
    RecordsetModel model_;
    const QString dateFormat_;
    std::unique_ptr<Ui::UserPanel> ui_;
    std::array<QLineEdit *, 6> Txtfields_;
    bool NewUserMode_ = false; ///< a save makes a waiting period
    bool RadKlikket_ = false;  ///< a change of row fills the form
    bool checking_ = false;    ///< a number check is asking its questions
    bool returning_ = false;   ///< the grid goes back to a row: nobody has chosen it
    /// Where the grid stood, while its rows are read anew.
    struct Place {
        Query query; ///< of those rows, whatever their order
        qint64 current = 0;
        qint64 top = 0; ///< in sight
        bool isSelected = false;
    };
    std::optional<Place> place_;
    std::optional<bool> widthsFor_; ///< layout that the columns' widths were chosen for
};
