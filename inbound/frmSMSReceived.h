#pragma once

#include "browsers/RecordBrowser.h"

class QLabel;
class QPlainTextEdit;

/// The messages that came in, with the text of the current one below. The only list whose rows are
/// edited and added by buttons: until cmdUpdate or cmdCancel nothing is written, and the frame's
/// keys rest.
class frmSMSReceived : public RecordBrowser {
    Q_OBJECT
public:
    explicit frmSMSReceived(const BrowserTools &tools);

protected:
    void designCaptions() override;
    void applyLanguage(int position, const QString &text) override;
    void loaded() override;
    void rowChanged() override;
    bool isEditable(const BrowserColumn &column) const override;

private:
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdUpdate_Click();
    void cmdCancel_Click();
    void setButtons(bool editing);
    void endEdit(bool added);

    QLabel *Label3;
    QPlainTextEdit *SMSText;
    qint64 before_ = 0; ///< the row that was current before cmdAdd
};
