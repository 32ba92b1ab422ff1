#pragma once

#include "modem/ModemView.h"

#include <QWidget>

#include <memory>

namespace Ui {
class NetworkModemPanel;
}

/// The network modem group: address, connect and disconnect, status box and terminal box.
/// What a click does is the LineSelection's business.
class NetworkModemPanel : public QWidget {
    Q_OBJECT

public:
    explicit NetworkModemPanel(QWidget *parent = nullptr);
    ~NetworkModemPanel() override;

    void showNetworkControls(const NetworkControls &controls);
    void appendStatusBox(const QString &text);
    void setTerminal(const QString &text);
    QString hostName() const;
    QString port() const;
    void setHostName(const QString &text);
    void setPort(const QString &text);

signals:
    void cmdConnectClicked();
    void cmdDisconnectClicked();
    void Command2Clicked();
    void Command3Clicked();
    void ComShowComClicked();

protected:
    void changeEvent(QEvent *event) override;

private:
    void captionComShowCom();

    std::unique_ptr<Ui::NetworkModemPanel> ui_;
    bool offersToHide_ = false; ///< ComShowCom does
};
