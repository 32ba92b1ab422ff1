#include "modem/NetworkModemPanel.h"

#include "ui_NetworkModemPanel.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFontDatabase>

namespace {

void showEnd(QPlainTextEdit &box)
{
    box.moveCursor(QTextCursor::End);
    box.ensureCursorVisible();
}

} // namespace

NetworkModemPanel::NetworkModemPanel(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::NetworkModemPanel>())
{
    ui_->setupUi(this);
    ui_->rtfTerminalScreen->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(ui_->cmdConnect, &QPushButton::clicked, this, &NetworkModemPanel::cmdConnectClicked);
    connect(ui_->cmdDisconnect, &QPushButton::clicked, this,
            &NetworkModemPanel::cmdDisconnectClicked);
    connect(ui_->Command2, &QPushButton::clicked, this, &NetworkModemPanel::Command2Clicked);
    connect(ui_->Command3, &QPushButton::clicked, this, &NetworkModemPanel::Command3Clicked);
    connect(ui_->ComShowCom, &QPushButton::clicked, this, &NetworkModemPanel::ComShowComClicked);
    showNetworkControls({});
}

NetworkModemPanel::~NetworkModemPanel() = default;

void NetworkModemPanel::showNetworkControls(const NetworkControls &controls)
{
    const std::initializer_list<QWidget *> group = {
        ui_->LabelTCPIP, ui_->lblHostName, ui_->lblPort,     ui_->txtHostName, ui_->txtPort,
        ui_->Command2,   ui_->Command3,    ui_->txtMessages, ui_->Line1,       ui_->ComShowCom};
    for (QWidget *control : group) {
        control->setVisible(controls.groupVisible);
    }
    ui_->cmdConnect->setVisible(controls.connectVisible);
    ui_->cmdConnect->setEnabled(controls.connectEnabled);
    ui_->cmdDisconnect->setVisible(controls.disconnectVisible);
    ui_->cmdDisconnect->setEnabled(controls.disconnectEnabled);
    ui_->txtHostName->setEnabled(controls.addressEnabled);
    ui_->txtPort->setEnabled(controls.addressEnabled);
    ui_->Command2->setEnabled(controls.commandsEnabled);
    ui_->Command3->setEnabled(controls.commandsEnabled);
    ui_->rtfTerminalScreen->setVisible(controls.terminalVisible);
    offersToHide_ = controls.offersToHide;
    captionComShowCom();
}

void NetworkModemPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        captionComShowCom();
    }
}

void NetworkModemPanel::captionComShowCom()
{
    ui_->ComShowCom->setText(
        offersToHide_ ? QCoreApplication::translate("NetworkModemPanel", "Skjul Modemkommunikasjon")
                      : QCoreApplication::translate("NetworkModemPanel", "Vis Modemkommunikasjon"));
}

void NetworkModemPanel::appendStatusBox(const QString &text)
{
    ui_->txtMessages->moveCursor(QTextCursor::End);
    ui_->txtMessages->insertPlainText(text);
    showEnd(*ui_->txtMessages);
}

void NetworkModemPanel::setTerminal(const QString &text)
{
    ui_->rtfTerminalScreen->setPlainText(text);
    showEnd(*ui_->rtfTerminalScreen);
}

QString NetworkModemPanel::hostName() const
{
    return ui_->txtHostName->text();
}

QString NetworkModemPanel::port() const
{
    return ui_->txtPort->text();
}

void NetworkModemPanel::setHostName(const QString &text)
{
    ui_->txtHostName->setText(text);
}

void NetworkModemPanel::setPort(const QString &text)
{
    ui_->txtPort->setText(text);
}
