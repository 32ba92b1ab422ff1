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

class DoorSearch;
class Host;
class QAbstractButton;
class QDateEdit;
class QHelpEvent;
class QItemSelection;
class QLabel;
class QLineEdit;
class SettingsStore;
class UserOperations;
struct UserHit;

namespace Ui {
class UserPanel;
}

/// The form for one user, above the grid of the current door's users.
class UserPanel : public QWidget {
    Q_OBJECT
public:
    UserPanel(Module1 &module, Recordsets &recordsets, ModemLink &modem, UserOperations &users,
              Operator &person, Clock &clock, const Host &host, SettingsStore &settings,
              QWidget *parent = nullptr);
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
    /// What a click on the button with the mouse does: the field in use is left first, which may
    /// ask; where the answer brings another period, nothing more is done.
    void press(QAbstractButton &button);
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
    void cmdHentTilbake_Click();
    void keepEntry();
    void numberEdited(const QString &text);
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
    int widthNeeded(int column) const;
    QString widthsKey() const;
    void columnResized();
    void rowsCame();
    void explainEmptiness();
    bool isCut(const QModelIndex &cell) const;
    bool showWholeText(const QHelpEvent &help);
    void DataGrid1_Click();
    void DataGrid1_RowChange(const QItemSelection &selected);
    void fillFromRow(int row);
    void forgetRow();
    QString statusTip(QObject *watched, const QPoint &place) const;
    void keepPlace();
    void backToPlace();
    void goTo(const UserHit &hit);

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
    SettingsStore &settings_;
    const QString dateFormat_;
    std::unique_ptr<Ui::UserPanel> ui_;
    DoorSearch *search_;
    std::array<QLineEdit *, 6> Txtfields_;
    bool NewUserMode_ = false; ///< a save makes a waiting period
    bool RadKlikket_ = false;  ///< a change of row fills the form
    bool checking_ = false;    ///< a number check is asking its questions
    bool goesOn_ = true;       ///< the last number check left what was begun as it is
    bool layingOut_ = false;   ///< the columns get their widths, and not from the operator
    bool returning_ = false;   ///< the grid goes back to a row: nobody has chosen it
    /// Where the grid stood, while its rows are read anew.
    struct Place {
        Query query; ///< of those rows, whatever their order
        qint64 current = 0;
        qint64 top = 0; ///< in sight
        bool isSelected = false;
        bool isChosen = false; ///< the operator wants to see it: the form shows it, too
    };
    std::optional<Place> place_;
    bool hasAutomaticWidths_ = false; ///< the columns under "Saldo"
    QLabel *lblTom_ = nullptr;        ///< above an empty grid
    std::optional<UserEntry> kept_;   ///< what the form held before it was emptied
    bool keptNewUserMode_ = false;
};
