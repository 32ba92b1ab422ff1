#include "inbound/frmSMSReceived.h"

#include "platform/Rules.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPlainTextEdit>

namespace {

constexpr int kLinesOfText = 5;

} // namespace

frmSMSReceived::frmSMSReceived(const BrowserTools &tools)
    : RecordBrowser(kSMSReceivedTable, tools), Label3(new QLabel), SMSText(new QPlainTextEdit)
{
    Label3->setObjectName(QStringLiteral("Label3"));
    SMSText->setObjectName(QStringLiteral("SMSText"));
    SMSText->setReadOnly(true);
    SMSText->viewport()->setBackgroundRole(QPalette::Window);
    SMSText->setTabChangesFocus(true);
    SMSText->setFixedHeight(SMSText->fontMetrics().lineSpacing() * kLinesOfText + 12);
    SMSText->installEventFilter(this);
    Label3->setBuddy(SMSText);
    placeBelowGrid(Label3);
    placeBelowGrid(SMSText);

    connect(&button("cmdAdd"), &QAbstractButton::clicked, this, &frmSMSReceived::cmdAdd_Click);
    connect(&button("cmdEdit"), &QAbstractButton::clicked, this, &frmSMSReceived::cmdEdit_Click);
    connect(&button("cmdUpdate"), &QAbstractButton::clicked, this,
            &frmSMSReceived::cmdUpdate_Click);
    connect(&button("cmdCancel"), &QAbstractButton::clicked, this,
            &frmSMSReceived::cmdCancel_Click);
    setButtons(false);
}

void frmSMSReceived::designCaptions()
{
    Label3->setText(QStringLiteral("SMS TEKST"));
}

void frmSMSReceived::applyLanguage(int position, const QString &text)
{
    constexpr int kLabel3 = 121;
    if (position == kLabel3) {
        Label3->setText(text);
    }
}

void frmSMSReceived::loaded()
{
    rowChanged();
}

/// A message without a text leaves the one before on show.
void frmSMSReceived::rowChanged()
{
    if (const QString text = value("SMS_Text"); !text.isEmpty()) {
        SMSText->setPlainText(text);
    }
}

bool frmSMSReceived::isEditable(const BrowserColumn &column) const
{
    return (EditFlag || AddNewFlag) &&
           column.languageRow != kSMSReceivedTable.columns[0].languageRow;
}

void frmSMSReceived::setButtons(bool editing)
{
    for (const char *name : {"cmdAdd", "cmdEdit", "cmdDelete", "cmdRefresh", "cmdClose"}) {
        button(name).setVisible(!editing);
    }
    button("cmdUpdate").setVisible(editing);
    button("cmdCancel").setVisible(editing);
}

void frmSMSReceived::cmdAdd_Click()
{
    before_ = model_.bookmark(currentRow());
    AddNewFlag = true;
    showStatus(QStringLiteral("Add record"));
    setButtons(true);
    applyRights();
    model_.setAddsRows(true);
    beginTyping(model_.recordCount(), 1);
}

void frmSMSReceived::cmdEdit_Click()
{
    if (value("ID").isEmpty()) {
        return;
    }
    EditFlag = true;
    showStatus(QStringLiteral("Edit record"));
    setButtons(true);
    applyRights();
    beginTyping(currentRow(), 1);
}

void frmSMSReceived::cmdUpdate_Click()
{
    endTyping();
    const bool added = model_.isNewRow(model_.editedRow());
    if (saveEdit()) {
        endEdit(added);
    }
}

void frmSMSReceived::cmdCancel_Click()
{
    endTyping();
    model_.cancelEdit();
    endEdit(false);
}

void frmSMSReceived::endEdit(bool added)
{
    const bool adding = std::exchange(AddNewFlag, false);
    EditFlag = false;
    model_.setAddsRows(false);
    applyRights();
    setButtons(false);
    if (adding) {
        moveTo(added ? model_.recordCount() - 1 : model_.rowOf(before_));
    }
    showCurrentRow();
}
