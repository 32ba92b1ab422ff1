#pragma once

#include "browsers/RecordBrowser.h"

/// The telephone catalogue: everybody known, on a door or not.
class frmBrukere : public RecordBrowser {
    Q_OBJECT
public:
    explicit frmBrukere(const BrowserTools &tools);

protected:
    /// Somebody who stands on a door stays. Nothing is asked.
    void cmdDelete_Click() override;
    /// Counts everybody's doors anew before the rows are read again.
    void cmdRefresh_Click() override;

private:
    int doorsOf(const QString &Bruker);
    void RecountTillatelser();

    Recordset rsBrukerTillatelser;
};
