#pragma once

#include "data/Recordsets.h"
#include "inbound/MessageReader.h"
#include "modem/ModemLink.h"
#include "modem/ModemView.h"
#include "users/UserOperations.h"

#include <QMainWindow>
#include <QSet>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

class DoorPanel;
class ModemPanel;
class NetworkModemPanel;
class ReceivedPanel;
class SettingsStore;
class StatusPanel;
class UserPanel;

namespace Ui {
class frmMain;
}

/// The one screen that stays open. It owns the shared recordsets and the modem side, puts them
/// together with the panels, and holds what concerns the whole screen: load, activation, menus,
/// language and unload. With it the program ends.
class frmMain : public QMainWindow, private ModemView {
    Q_OBJECT

public:
    frmMain(Clock &clock, Operator &person, SettingsStore &settings, const Host &host,
            SerialPort &MSComm1, TcpSocket &Winsock1, Module1 &module);
    ~frmMain() override;

    /// Everything between creation and the first showing; the modem may be initialised when it
    /// ends. A failure is shown and the load stops there: the screen comes up with what was done.
    void load();
    /// What closing the screen does, also while it was never shown. The program ends with it, from
    /// whatever dialogue it is in, but behind the outcome of a message under way.
    /// With nobody there to be asked, a machine that shuts down, no question holds it up for longer
    /// than kLongestAttempt.
    void unload(bool somebodyIsThere = true);

    Recordsets &recordsets() { return recordsets_; }
    ModemLink &modemLink() { return link_; }
    void setVisible(bool visible) override;

signals:
    void languageChanged(const QString &CountryCode);
    /// The inbound panel's text: while the screen is loaded, how far the modem is.
    void inboundTold(const QString &text);

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    // frmMain.cpp: putting together, load, focus, unload
    void wirePanels();
    void wireKeys();
    void buildStatusBar();
    void placePanels();
    void placeWindow();
    void readSettings();
    void applySecurityLevel();
    void startModem();
    void followFocus();
    void activated();
    void deactivated();
    void releaseModem();
    /// Whether none has stayed: one that is at work, or has unsaved edits, may.
    bool unloadOtherScreens();
    void saveSettings();
    void endWhenWritten();
    void end();

    // frmMainMenus.cpp
    void wireMenus();
    void wirePortMenu();
    void tickLanguage();
    void tickSmsReport();
    void ApplyLanguage();
    void chooseLanguage(const QString &CountryCode);
    void chooseSmsReport(bool on);
    /// A click that speaks with the modem or takes it away waits for the message under way.
    void whenQueueIsIdle(const std::function<void()> &click);
    void mnuFileDatabase();
    void useFile(const QString &path);
    void mnuFileCompactDatabase();
    void VisBrukerTabell();

    // frmMainScreens.cpp: the screens beside this one
    void wireScreens();
    /// A screen beside this one, and the menu entry that it belongs to.
    struct OpenScreen {
        std::unique_ptr<QWidget> window;
        QAction *entry = nullptr;
        int opened = 0; ///< counts up
    };
    template <class Make> void openScreen(const Make &make, QAction *entry);
    static void entitle(const OpenScreen &screen);
    void entitleScreens();
    void forgetClosedScreens();

    // frmMainView.cpp: what the recordsets and the modem side show
    void display();
    QString portWord() const;
    std::array<QAction *, 7> portMenu() const;
    void setPanel(int number, const QString &text) override;
    void appendStatusBox(const QString &text) override;
    void setTerminal(const QString &text) override;
    void showNetworkControls(const NetworkControls &controls) override;
    void tickPort(PortMenuEntry entry) override;
    void setOtherPortCaption(const QString &caption) override;
    QString hostName() const override;
    QString port() const override;
    void setHostName(const QString &text) override;
    void setPort(const QString &text) override;

    static constexpr quint8 kLastPortInMenu = 4; ///< COM ports with an entry of their own

    Clock &clock_;
    Operator &operator_;
    SettingsStore &settings_;
    const Host &host_;
    SerialPort &MSComm1_;
    Module1 &module_;
    std::unique_ptr<Ui::frmMain> ui_;
    Recordsets recordsets_;
    ModemLink link_;
    UserOperations users_;
    MessageReader reader_;

    // Children of the screen, which deletes them.
    DoorPanel *doorPanel_;
    UserPanel *userPanel_;
    ReceivedPanel *receivedPanel_;
    ModemPanel *modemPanel_;
    NetworkModemPanel *networkPanel_;
    StatusPanel *sbStatusBar_[3] = {};

    /// The open screens, by object name; closed ones go when this screen has the focus again.
    std::map<QString, OpenScreen> screens_;
    std::vector<std::unique_ptr<QWidget>> closedScreens_;
    int screensOpened_ = 0;
    QSet<QString> opening_; ///< being loaded, by object name

    bool hasFocus_ = false; ///< the screen, or a question that it asks, has the focus
    bool unloading_ = false;
    std::unique_ptr<Timer> endTimer_;
    std::unique_ptr<Timer> writeTimer_;
    /// Clicks of the same signals wait once.
    std::set<std::pair<QObject *, int>> waitingClicks_;
};
