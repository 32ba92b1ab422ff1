#include "app/StatusPanel.h"
#include "app/frmMain.h"
#include "data/Module1.h"
#include "inbound/ReceivedPanel.h"
#include "modem/ModemPanel.h"
#include "modem/NetworkModemPanel.h"
#include "ui_frmMain.h"
#include "users/DoorPanel.h"

// What the main screen shows of the recordsets and of the modem side.

void frmMain::display()
{
    doorPanel_->display();
    receivedPanel_->showCurrent(recordsets_.rsSmsReceived);
    modemPanel_->display(recordsets_.rsModem);
    const Recordset &modem = recordsets_.rsModem;
    receivedPanel_->setModemOn(modem.row() && modem.value(QStringLiteral("ModemStatus")).toBool());
    setPanel(1, modemPanelText(module_, modem, portWord(), hostName()));
}

/// In the order of PortMenuEntry.
std::array<QAction *, 7> frmMain::portMenu() const
{
    return {ui_->mnuComPortComNone, ui_->mnuComPortCom1, ui_->mnuComPortCom2,
            ui_->mnuComPortCom3,    ui_->mnuComPortCom4, ui_->mnuComPortComOther,
            ui_->mnuComPortWinsock};
}

/// What the port menu calls the line.
QString frmMain::portWord() const
{
    const quint8 port = module_.ActiveComPort;
    const QAction *entry = port == kNetworkModem     ? ui_->mnuComPortWinsock
                           : port <= kLastPortInMenu ? portMenu()[port]
                                                     : ui_->mnuComPortComOther;
    return entry->text().remove(u'&');
}

void frmMain::setPanel(int number, const QString &text)
{
    sbStatusBar_[number - 1]->setText(text);
    if (number == 2) {
        emit inboundTold(text);
    }
}

void frmMain::appendStatusBox(const QString &text)
{
    networkPanel_->appendStatusBox(text);
}

void frmMain::setTerminal(const QString &text)
{
    networkPanel_->setTerminal(text);
}

void frmMain::showNetworkControls(const NetworkControls &controls)
{
    networkPanel_->showNetworkControls(controls);
    // An empty frame would puzzle those whose modem is on a COM port.
    networkPanel_->parentWidget()->setVisible(controls.groupVisible || controls.connectVisible ||
                                              controls.disconnectVisible ||
                                              controls.terminalVisible);
}

void frmMain::tickPort(PortMenuEntry entry)
{
    const auto entries = portMenu();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        entries[i]->setChecked(i == static_cast<std::size_t>(entry));
    }
}

void frmMain::setOtherPortCaption(const QString &caption)
{
    ui_->mnuComPortComOther->setText(caption);
}

QString frmMain::hostName() const
{
    return networkPanel_->hostName();
}

QString frmMain::port() const
{
    return networkPanel_->port();
}

void frmMain::setHostName(const QString &text)
{
    networkPanel_->setHostName(text);
}

void frmMain::setPort(const QString &text)
{
    networkPanel_->setPort(text);
}
