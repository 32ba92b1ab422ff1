#pragma once

#include <QString>

/// What of the network modem group can be seen and used.
struct NetworkControls {
    bool groupVisible = false;   ///< LabelTCPIP … txtMessages, Line1, ComShowCom
    bool connectVisible = false; ///< cmdConnect
    bool connectEnabled = true;
    bool disconnectVisible = false; ///< cmdDisconnect
    bool disconnectEnabled = false;
    bool addressEnabled = true;   ///< txtHostName, txtPort
    bool commandsEnabled = false; ///< Command2, Command3
    /// rtfTerminalScreen: shown and hidden with the group, and by ComShowCom as its caption says.
    /// The images show it without the group too.
    bool terminalVisible = false;
    bool offersToHide = false; ///< the caption of ComShowCom
};

/// The tick in the port menu.
enum class PortMenuEntry { ComNone, Com1, Com2, Com3, Com4, ComOther, Winsock, Untouched };

/// What the modem side shows on the main screen. frmMain realises it with its widgets.
class ModemView {
public:
    virtual ~ModemView() = default;
    /// One of the panels 1 to 3 of sbStatusBar: modem and line, inbound, outbound.
    virtual void setPanel(int number, const QString &text) = 0;
    /// Appends to txtMessages and puts the caret behind it.
    virtual void appendStatusBox(const QString &text) = 0;
    /// The whole text of rtfTerminalScreen (at most 600 characters), the caret at its end.
    virtual void setTerminal(const QString &text) = 0;
    virtual void showNetworkControls(const NetworkControls &controls) = 0;
    /// Removes all ticks and sets this one; Untouched sets none.
    virtual void tickPort(PortMenuEntry entry) = 0;
    virtual void setOtherPortCaption(const QString &caption) = 0;
    virtual QString hostName() const = 0;
    virtual QString port() const = 0;
    virtual void setHostName(const QString &text) = 0;
    virtual void setPort(const QString &text) = 0;
};
