#pragma once

#include "browsers/RecordBrowser.h"

class SendPace;

/// The log of the current door, and five buttons that ask the door for more of it.
class frmLOGG : public RecordBrowser {
    Q_OBJECT
public:
    frmLOGG(const BrowserTools &tools, SendPace &pace);

protected:
    Query query() const override;
    void loaded() override;

private:
    void fetch(const QString &text);
    void RequestDoorLog(const QString &text);

    SendPace &pace_;
    Recordset rsQueue; ///< the outbox, on this screen's connection
};
