#pragma once

#include "browsers/BrowserTable.h"
#include "browsers/RecordsetModel.h"
#include "browsers/RowExport.h"
#include "platform/Tries.h"

#include <QWidget>

#include <chrono>
#include <optional>
#include <vector>

class Operator;
class QAbstractButton;
class QLabel;
class SettingsStore;
struct Module1;

namespace Ui {
class RecordBrowser;
}

/// What a browser needs of the program around it.
struct BrowserTools {
    Module1 &module;
    Operator &person;
    Clock &clock;
    SettingsStore &settings;
};

/// A screen that shows one table: the grid, the buttons below it, the bar to move by, a search
/// line. Its row of BrowserTable says how it looks; what a row cannot say, a class made from this
/// one does.
///
/// It reads through a connection of its own. The current row of the grid is the current row of
/// adoPrimaryRS. Where cells may be typed in, a row is saved when it is left, and when the screen
/// is closed.
class RecordBrowser : public QWidget {
    Q_OBJECT
public:
    RecordBrowser(const BrowserTable &table, const BrowserTools &tools);
    ~RecordBrowser() override;

    /// Reads captions and rows, and stands on the first row; again, it stands where it stood. An
    /// edit that cannot be ended now stays as it is, and nothing is read.
    /// @throws RuntimeFailure when that fails.
    void load();

protected:
    /// What adoPrimaryRS shows; a screen whose rows depend on something adds its filter.
    virtual Query query() const;
    /// Captions of the screen's own, in the language of the moment, before those of TBLLanguage.
    virtual void designCaptions() {}
    /// Each text of TBLLanguage in the operator's language, for what is none of the table's.
    virtual void applyLanguage(int position, const QString &text);
    /// Bookmark of the row to stand on when the screen opens; 0 for the first row.
    virtual qint64 startRow() { return 0; }
    /// The rows are there, or those that are listed so far.
    virtual void loaded() {}
    /// MoveComplete: adoPrimaryRS stands on another row.
    virtual void rowChanged() {}
    /// A new row has been begun in this column: its defaults can be given.
    virtual void newRowBegun(int column);
    /// The changed row is about to be saved; it fails when it must not be.
    virtual void checkRow(int /*row*/) const {}
    virtual void rowSaved() {}
    virtual void cellDoubleClicked() {}
    virtual void cmdDelete_Click();
    virtual void cmdRefresh_Click();
    /// Which columns may be typed in at the moment; the table's, unless a screen says otherwise.
    virtual bool isEditable(const BrowserColumn &column) const;
    /// Whether the empty last row of a table that has one is there for this operator.
    virtual bool addsRows() const { return true; }

    /// Asks isEditable() anew.
    void applyRights();
    void setTimer1(bool enabled);
    QAbstractButton &button(const char *name) const;
    /// Text of the current row; empty without one, or when the file is in other hands.
    QString value(const char *field);
    /// A text of the catalogue of messages, in the operator's language.
    QString sourceText(const char *text) const;
    /// Saves what was typed in a row, an open cell included; false when it could not be, and the
    /// operator knows why.
    bool saveEdit();
    /// Reads the rows anew, in their order; the place stays.
    void readAgain();
    /// For what the operator waits for: a second at most until the file can be read.
    /// @throws RuntimeFailure when it is in other hands all that time.
    void awaitFile();
    /// Work that takes long: a slice at a time, until one gives false or the operator presses Esc.
    /// Each says how far the whole has come, in per cent. One that finds the file in other hands
    /// must have done nothing: it is tried again for some 5 s. A failure is shown and ends the
    /// work. Other work that is going on is not given up for it: then there is a beep, and nothing
    /// else.
    void beginWork(std::function<bool(int &percent)> slice);
    void placeAboveGrid(QWidget *control);
    void placeBelowGrid(QWidget *control);
    void showStatus(const QString &text);
    /// Says where the screen stands, and lets the screen follow, as after a move.
    void showCurrentRow();
    /// Opens a cell, and closes the one that is open, what was typed in it being kept.
    void beginTyping(int row, int column);
    void endTyping();
    /// A cell is open.
    bool isTyping() const;
    void moveTo(int row);
    int currentRow() const; ///< -1 without one

    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    const BrowserTable &table_;
    Module1 &module_;
    Operator &person_;
    Clock &clock_;
    SettingsStore &settings_;
    std::shared_ptr<Connection> connection_;
    Recordset adoPrimaryRS;
    RecordsetModel model_;
    bool EditFlag = false;   ///< cmdUpdate or cmdCancel will end the edit; the frame's keys rest
    bool AddNewFlag = false; ///< the same for a new row

private:
    /// Where the screen stood before it was read anew.
    struct PlaceKept {
        qint64 current = 0;
        qint64 top = 0;
        std::vector<qint64> selected = {}; ///< in ascending order
        int column = 0;
        int across = 0; ///< the bar below the grid
    };

    void buildButtons();
    void buildGrid();
    void wire();
    void translate(Connection &connection);
    void paintSearch();
    void load(milliseconds patience);
    void openRows(const std::shared_ptr<Connection> &connection);
    void showRows(RecordsetModel::GivesWay when);
    void readOn();
    void keepPlace();
    void backToPlace();
    void stayHere();
    void setSort(const QString &column);
    void sortBy(const QString &column);
    void showSort();
    void headingClicked(int column);
    void searchChanged();
    void currentRowChanged();
    void showPosition();
    void showProgress();
    QString settingsKey(const char *what) const;
    QString sortToOpenIn() const;
    void restoreColumns();
    void saveColumns();
    std::vector<RowExport::Column> columnsInSight() const;
    bool Form_KeyDown(int key, Qt::KeyboardModifiers modifiers, const QObject *in);
    bool dropWhatIsTyped(bool inSearch);
    void cmdFirst_Click();
    void cmdLast_Click();
    void cmdNext_Click();
    void cmdPrevious_Click();
    bool moveToEmptyRow();
    void beginExport(const std::function<std::vector<qint64>()> &bookmarks,
                     RowExport::Format format, const std::function<void(const QString &)> &sink,
                     const std::function<void()> &finish);
    void workOn();
    void endWork();
    bool stopWork();
    void askForWhatIsShown();
    void copySelection();
    void saveAsCsv();
    void timer1Tick();

    std::unique_ptr<Ui::RecordBrowser> ui_;
    QLabel *lblEmpty_; ///< in the grid, why there is nothing else in it
    std::unique_ptr<Timer> Timer1_;
    std::unique_ptr<Timer> work_;
    Tries workTries_;
    Tries reload_;
    bool reloadDue_ = false;           ///< Timer1 could not read what RefreshPending tells of
    std::function<bool(int &)> slice_; ///< of the long work that is going on
    QStringList headings_;
    QString path_;           ///< of the file that the rows come from
    bool wantsLast_ = false; ///< the last row is moved to once it is known, unless another is first
    bool settled_ = false;   ///< columns stand as their operator left them
    std::chrono::milliseconds readingSince_{0};
    std::optional<PlaceKept> place_; ///< on the way back there
};
