#pragma once

#include "browsers/RecordBrowser.h"

/// What was sent, or the outbox with what was withdrawn from it, by Module1::SmsListSent.
class frmSMSSent : public RecordBrowser {
    Q_OBJECT
public:
    explicit frmSMSSent(const BrowserTools &tools);

protected:
    Query query() const override;
};
