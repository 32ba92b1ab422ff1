#pragma once

#include "browsers/RecordBrowser.h"

class Recordsets;
class SendPace;

/// The log of the current door, and five buttons that ask the door for more of it.
class frmLOGG : public RecordBrowser {
    Q_OBJECT
public:
    /// The recordsets tell the current door's name.
    frmLOGG(const BrowserTools &tools, const Recordsets &recordsets, SendPace &pace);

protected:
    Query query() const override;
    void loaded() override;

private:
    void fetch(const QString &text);
    void RequestDoorLog(const QString &text);

    const Recordsets &recordsets_;
    SendPace &pace_;
    Recordset rsQueue; ///< the outbox, on this screen's connection
};
