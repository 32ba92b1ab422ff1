#pragma once

#include "data/Recordset.h"

#include <functional>

class Operator;
struct Module1;

/// The twelve shared recordsets of the main screen, and the database that they read.
class Recordsets {
public:
    Recordsets(Module1 &module, Operator &person);

    /// Opens Module1::DatabaseConnection by Module1::DatabasePath; with CompactRequested the file
    /// is compacted first. A failure shows its description, sets CompactFailed and leaves the
    /// program without a connection.
    void OpenDatabase();
    /// Rebuilds all twelve, so that this PC sees what others wrote, and calls display at the end.
    /// A failure shows its description; a set whose query failed stays unopened, and the rest of
    /// the refresh doesn't run.
    void OpenRecordsets();

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
    Module1 &module_;
    Operator &operator_;
    QString doorNumber_;
    QString doorName_;
};
