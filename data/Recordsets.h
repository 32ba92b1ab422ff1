#pragma once

#include "data/Recordset.h"

#include <functional>

class Connection;
class Operator;
struct Module1;

/// The doors that an operator of this level may see. The level is compared as text, with a blank
/// behind it: with "5" a door of "10" is shown.
Query allowedDoors(const QString &SecurityLevel, const QStringList &columns);

/// The twelve shared recordsets of the main screen, and the database that they read.
class Recordsets {
public:
    Recordsets(Module1 &module, Operator &person);

    /// Opens Module1::DatabaseConnection by Module1::DatabasePath; with CompactRequested the file
    /// is compacted first. What was open before is closed, with all sets: a place in the former
    /// file means nothing in this one. A failure shows its description, sets CompactFailed and
    /// leaves the program without a connection.
    void OpenDatabase();
    /// Rebuilds all twelve, so that this PC sees what others wrote, and calls display at the end.
    /// A failure shows its description; a set whose query failed stays unopened, and the rest of
    /// the refresh doesn't run.
    void OpenRecordsets();
    /// The same, for whoever must ask nothing now.
    /// @throws RuntimeFailure when the file cannot be read.
    void reopen();
    /// Whether the last reopen() went well; behind one that failed, some of the sets are closed.
    bool areOpen() const;

    /// Runs the work in one transaction: what it writes is on disk when this returns, or nothing
    /// of it is.
    /// @throws RuntimeFailure without an open database, when others hold the file for over 5 s,
    /// and with whatever the work throws.
    void atOnce(const std::function<void()> &work);

    bool CompactRequested = false;
    bool CompactFailed = false;

    Recordset rsKeyAll;      ///< KEYTable, all doors
    Recordset rsKeyAllowed;  ///< the doors that the level may see; on the current door
    Recordset rsBrukereAll;  ///< TBLbrukere over all doors
    Recordset rsNyeBrukere;  ///< NYEbrukere over all doors, ordered by [Gyldig fra]
    Recordset rsBrukereKey;  ///< TBLbrukere of the current door
    Recordset rsKatalog;     ///< the catalogue
    Recordset rsSmsReceived; ///< ordered by ID, on its last row
    Recordset rsSmsSentDone; ///< SMS_Sent without the queue
    Recordset rsSmsOutbox;   ///< the outbound queue
    Recordset rsKeyAntall;   ///< number of doors for each user
    Recordset rsLoggData;    ///< door logs
    Recordset rsModem;       ///< the one row of the modem in use

    /// The three recordsets of the user grid, opened anew by VisBrukerTabell.
    Recordset rsVisNyeBrukere; ///< the door's rows of NYEbrukere
    Recordset rsVisBrukere;    ///< the door's users behind every other tab
    Recordset rsListBrukere;   ///< the accounts of the door's users

    /// Number and name of the door on screen (KeyTXT 0 and 1): the current row of rsKeyAllowed, or
    /// its first row when KeySelect was not found there. Empty without doors.
    QString doorNumber() const;
    QString doorName() const;

    /// What the screen binds to the recordsets; called at the end of each OpenRecordsets.
    std::function<void()> display;

private:
    void closeAll();
    Connection &opened() const;
    void openDoors();
    void openUsersAndMessages();

    Module1 &module_;
    Operator &operator_;
    /// Of the first allowed door, for the time that no row of rsKeyAllowed is current.
    QString doorNumber_;
    QString doorName_;
};

/// Text of the status bar's first panel: manufacturer and name of the modem, " på ", and where it
/// is. That is "COM" and the number for a ready modem on a COM port, the host for a ready network
/// modem, and portWord, the port menu's word, for one that is not ready.
QString modemPanelText(const Module1 &module, const Recordset &rsModem, const QString &portWord,
                       const QString &hostName);
