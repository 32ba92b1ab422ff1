#include "app/frmMain.h"

#include "app/SecurityLevels.h"
#include "app/StatusPanel.h"
#include "app/StoredSettings.h"
#include "data/Module1.h"
#include "inbound/ReceivedPanel.h"
#include "modem/ModemPanel.h"
#include "modem/NetworkModemPanel.h"
#include "modem/PassOn.h"
#include "modem/QueueWords.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/SerialPort.h"
#include "platform/SettingsStore.h"
#include "platform/Text.h"
#include "platform/qt/Keys.h"
#include "ui_frmMain.h"
#include "users/DoorPanel.h"
#include "users/UserPanel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>

namespace {

constexpr milliseconds kTimerCom = 1000ms;
const QString kColumnsKey = QStringLiteral("MainColumns"); ///< widths of users and modem
const QString kRowsKey = QStringLiteral("MainRows");       ///< heights of users and messages
constexpr int kMoreLinesOfReceived = 3;       ///< of a message in sight than fit at least
constexpr int kLettersOfModem = 38;           ///< that its column is wide to start with
constexpr milliseconds kLongestAttempt = 35s; ///< to hand a message to the network

void setVisibleInMenuOrScreen(QWidget &screen, const QString &name, bool visible)
{
    if (auto *action = screen.findChild<QAction *>(name)) {
        action->setVisible(visible);
    } else if (auto *menu = screen.findChild<QMenu *>(name)) {
        menu->menuAction()->setVisible(visible);
    } else if (auto *control = screen.findChild<QWidget *>(name)) {
        control->setVisible(visible);
    }
}

} // namespace

frmMain::frmMain(Clock &clock, Operator &person, SettingsStore &settings, const Host &host,
                 SerialPort &MSComm1, TcpSocket &Winsock1, Module1 &module)
    : clock_(clock),
      operator_(person),
      settings_(settings),
      host_(host),
      MSComm1_(MSComm1),
      module_(module),
      ui_(std::make_unique<Ui::frmMain>()),
      recordsets_(module, person),
      link_(clock, host, person, MSComm1, Winsock1, *this, module, recordsets_),
      users_(module, recordsets_, link_, person, clock, host, [this] { VisBrukerTabell(); }),
      reader_(link_, module, recordsets_, *this, clock, host, [this] { VisBrukerTabell(); }),
      doorPanel_(new DoorPanel(module, recordsets_, link_, person, clock)),
      userPanel_(new UserPanel(module, recordsets_, link_, users_, person, clock, host, settings)),
      receivedPanel_(new ReceivedPanel(recordsets_, person)),
      modemPanel_(new ModemPanel),
      networkPanel_(new NetworkModemPanel)
{
    ui_->setupUi(this);
    placePanels();
    buildStatusBar();
    wirePanels();
    wireMenus();
    wireKeys();
}

frmMain::~frmMain()
{
    // The panels and the other screens stand on members of this screen, so they go before those do.
    screens_.clear();
    closedScreens_.clear();
    delete takeCentralWidget();
}

void frmMain::wirePanels()
{
    recordsets_.display = [this] { display(); };
    link_.watcher.StartNyBruker = [this] { users_.StartNyBruker(); };
    link_.queue.outcomeWritten = [this] { VisBrukerTabell(); };
    link_.watcher.Read_SMS_MessageTEXT = [this] { reader_.Read_SMS_MessageTEXT(); };

    connect(doorPanel_, &DoorPanel::doorChosen, userPanel_, &UserPanel::followDoor);

    LineSelection &selection = link_.selection;
    const auto toggleTerminal = [&selection] { selection.ComShowCom(); };
    connect(modemPanel_, &ModemPanel::imageClicked, this, toggleTerminal);
    connect(networkPanel_, &NetworkModemPanel::ComShowComClicked, this, toggleTerminal);
    const auto onClick = [&](void (NetworkModemPanel::*clicked)(), void (LineSelection::*act)()) {
        connect(networkPanel_, clicked, this,
                [this, act] { whenQueueIsIdle([this, act] { (link_.selection.*act)(); }); });
    };
    onClick(&NetworkModemPanel::cmdConnectClicked, &LineSelection::cmdConnect);
    onClick(&NetworkModemPanel::cmdDisconnectClicked, &LineSelection::cmdDisconnect);
    onClick(&NetworkModemPanel::Command2Clicked, &LineSelection::Command2);
    onClick(&NetworkModemPanel::Command3Clicked, &LineSelection::Command3);
}

void frmMain::whenQueueIsIdle(const std::function<void()> &click)
{
    const auto signal = std::make_pair(sender(), senderSignalIndex());
    if (!waitingClicks_.insert(signal).second) {
        return; // clicked again, since nothing has happened yet
    }
    operator_.setBusy(&link_.queue, true);
    link_.queue.whenIdle([this, click, signal] {
        waitingClicks_.erase(signal);
        operator_.setBusy(&link_.queue, false);
        if (!unloading_) {
            click();
        }
    });
}

void frmMain::placePanels()
{
    const auto card = [](QWidget *panel) {
        auto *frame = new QFrame;
        frame->setFrameShape(QFrame::StyledPanel);
        auto *inside = new QVBoxLayout(frame);
        inside->setContentsMargins(10, 8, 10, 8);
        panel->layout()->setContentsMargins(0, 0, 0, 0);
        inside->addWidget(panel);
        return frame;
    };
    ui_->doorAndUsersLayout->addWidget(card(doorPanel_));
    ui_->doorAndUsersLayout->addWidget(card(userPanel_), 1);
    ui_->usersColumn->addWidget(card(receivedPanel_));
    ui_->modemColumn->addWidget(card(modemPanel_));
    ui_->modemColumn->addWidget(card(networkPanel_), 1);
    ui_->modemColumn->addStretch();
    // A window that grows gives the room to the table of users; form and table are always there.
    ui_->columns->setStretchFactor(0, 1);
    ui_->usersColumn->setStretchFactor(0, 1);
    ui_->columns->setCollapsible(0, false);
    ui_->usersColumn->setCollapsible(0, false);
    networkPanel_->parentWidget()->hide();
}

void frmMain::buildStatusBar()
{
    for (int panel = 0; panel < 3; ++panel) {
        if (panel > 0) {
            auto *line = new QFrame;
            line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
            ui_->sbStatusBar->addWidget(line);
        }
        sbStatusBar_[panel] =
            new StatusPanel(QStringLiteral("sbStatusBar_%1").arg(panel + 1), this);
        ui_->sbStatusBar->addWidget(sbStatusBar_[panel], 1);
    }
    sbStatusBar_[2]->setWords([this] { return queueWords(module_, link_, clock_.now()); });
}

void frmMain::load()
{
    // The order is required: a failing step is shown, and nothing behind it happens. A port that
    // cannot be opened is no such step, or an unplugged modem would leave a screen without tabs.
    shown(operator_, {}, [this] {
        placeWindow();
        readSettings();
        tickSmsReport();
        recordsets_.OpenDatabase();
        recordsets_.OpenRecordsets();
        recordsets_.CompactRequested = false;
        setVisibleInMenuOrScreen(*this, QStringLiteral("mnuSpråkLanguage"),
                                 same(module_.LoginUser, QStringLiteral("Hovedoperatør")));
        applySecurityLevel();
        startModem();
        link_.flags.ComposingSms = false;
        link_.TimerCom->setInterval(kTimerCom);
        link_.TimerCom->setEnabled(module_.ModemReady);
        ApplyLanguage();
        userPanel_->setSorteringBrukere(QStringLiteral("Bruker"));
        userPanel_->chooseWaitingTab();
    });
}

void frmMain::placeWindow()
{
    // A screen that was unplugged since, or is smaller now, must not take the window with it.
    const QRect stored = storedWindow(settings_);
    const QScreen *target = QGuiApplication::screenAt(stored.center());
    const QRect room = (target ? target : screen())->availableGeometry();
    const QSize around(0, menuBar()->sizeHint().height() + ui_->sbStatusBar->sizeHint().height());
    const QSize whole = ui_->content->minimumSizeHint() + around; // in sight without scrolling
    const QSize size = stored.size().expandedTo(whole).boundedTo(room.size());
    resize(size);
    const QPoint furthest = room.bottomRight() - QPoint(size.width() - 1, size.height() - 1);
    move(std::clamp(stored.left(), room.left(), furthest.x()),
         std::clamp(stored.top(), room.top(), furthest.y()));
    // Room that is left over belongs to the table of users, until the operator decides.
    const QWidget &messages = *receivedPanel_->parentWidget();
    const int lines = kMoreLinesOfReceived * fontMetrics().lineSpacing();
    const int received = messages.minimumSizeHint().height() + lines;
    ui_->usersColumn->setSizes({std::max(0, size.height() - around.height() - received), received});
    const int modem = std::max(ui_->modemSide->minimumSizeHint().width(),
                               kLettersOfModem * fontMetrics().averageCharWidth());
    ui_->columns->setSizes({std::max(0, size.width() - modem), modem});
    restoreSizes(settings_, kColumnsKey, *ui_->columns);
    restoreSizes(settings_, kRowsKey, *ui_->usersColumn);
}

void frmMain::readSettings()
{
    const auto get = [this](const QString &key, const QString &byDefault) {
        return settings_.get(key, byDefault);
    };
    module_.KeySelect = get(QStringLiteral("KeySelect"), QStringLiteral("1"));
    module_.ActiveComPort = toByte(get(QStringLiteral("LastComPort"), QStringLiteral("0")));
    module_.SmsReportOn = toFlag(get(QStringLiteral("SMSREPORT"), flagText(false)));
    module_.CountryCode = get(QStringLiteral("CountryCode"), QStringLiteral("47"));
    setHostName(get(QStringLiteral("HostName"), QStringLiteral("127.0.0.1")));
    setPort(get(QStringLiteral("Port"), QStringLiteral("23")));
    // What was stored counted for the splash only; from here on the logo follows the language.
    module_.LogoCountryCode = module_.CountryCode;
}

void frmMain::applySecurityLevel()
{
    for (const LevelRule &rule : levelRules()) {
        if (const std::optional<bool> visible = rule.visibleAt(module_.SecurityLevel)) {
            setVisibleInMenuOrScreen(*this, rule.control.toString(), *visible);
        }
    }
}

void frmMain::startModem()
{
    shown(operator_, {}, [this] { link_.selection.SelectModemLine(); });
    passOnTheEnd(clock_);
    // The network modem's connection dialogue ends in the initialisation by itself.
    if (module_.ActiveComPort != kNetworkModem) {
        link_.initialiser.InitModem();
    }
    // Only behind the selection, which therefore leaves the tick off; and for 255 too, so that the
    // menu reads com255 then. Both are meant so.
    if (module_.ActiveComPort > kLastPortInMenu) {
        module_.OtherComPort = module_.ActiveComPort;
        setOtherPortCaption(QStringLiteral("com%1").arg(module_.OtherComPort));
    }
}

/// Qt presses a button by the space bar alone.
void frmMain::keyPressEvent(QKeyEvent *event)
{
    auto *button = qobject_cast<QAbstractButton *>(focusWidget());
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && event->modifiers().testFlags(Qt::NoModifier) && button != nullptr) {
        button->click();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void frmMain::wireKeys()
{
    onKey(*this, "F5", [this] {
        shown(operator_, {}, [this] { recordsets_.OpenRecordsets(); });
        VisBrukerTabell();
    });
}

void frmMain::setVisible(bool visible)
{
    QMainWindow::setVisible(visible);
    // Some window systems never tell a first window that it has the focus.
    if (visible && !hasFocus_) {
        hasFocus_ = true;
        findChild<QWidget *>(QStringLiteral("Txtfields_0"))->setFocus();
        activated();
    }
}

void frmMain::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) {
        followFocus();
    }
}

void frmMain::followFocus()
{
    // A question asked by one of our handlers borrows the focus and gives it back to that handler:
    // the screen has not been left, and what the operator was typing must stay. Coming back from
    // another screen or another program is an activation.
    const bool left = !isActiveWindow();
    if (!isVisible() || (left && QApplication::activeModalWidget() != nullptr) ||
        left != hasFocus_) {
        return;
    }
    hasFocus_ = !left;
    hasFocus_ ? activated() : deactivated();
}

void frmMain::activated()
{
    if (unloading_) {
        return;
    }
    forgetClosedScreens();
    shown(operator_, {}, [this] {
        link_.pace.hurry();
        userPanel_->CLEAR_INPUT();
        module_.RefreshPending = true;
        recordsets_.OpenRecordsets();
        VisBrukerTabell();
        userPanel_->refreshDates();
    });
}

void frmMain::deactivated()
{
    if (!unloading_) {
        link_.pace.hurry();
    }
}

void frmMain::closeEvent(QCloseEvent *event)
{
    event->accept();
    unload();
}

void frmMain::unload(bool somebodyIsThere)
{
    if (!somebodyIsThere && !endTimer_) {
        endTimer_ = clock_.timer([this] { end(); });
        endTimer_->setInterval(kLongestAttempt);
        endTimer_->setEnabled(true);
        operator_.withdraw();
    }
    if (unloading_) {
        return;
    }
    unloading_ = true;
    link_.pace.stop();
    link_.TimerCom->setEnabled(false);
    if (link_.flags.QueueRunning) {
        // The screen goes away all the same, nothing is saved and the modem is not released: this
        // is how the program is to behave.
        if (somebodyIsThere) {
            kept([this] { operator_.messageBox(module_.texts.ventTilSending, {}, Buttons::Ok); });
        }
        for (const auto &[name, screen] : screens_) {
            screen.window->hide(); // what is begun there now would be cut off
        }
        operator_.withdraw(); // a box of theirs would hold up the result
    } else {
        shown(operator_, {}, [this] { releaseModem(); });
        unloadOtherScreens();
        if (!isMinimized()) {
            saveSettings();
        }
    }
    hide();
    // The network may have taken the message that is under way: without its result the next run
    // would send it again.
    if (!endTimer_) {
        endTimer_ = clock_.timer([this] { end(); });
        endTimer_->setInterval(kLongestAttempt);
        endTimer_->setEnabled(true);
    }
    link_.queue.whenIdle([this] { endWhenWritten(); });
}

/// Another PC may hold the file at the very moment of the result.
void frmMain::endWhenWritten()
{
    bool isWritten = false;
    kept([&] {
        link_.queue.writeOutcome();
        isWritten = true;
    });
    if (isWritten) {
        end();
        return;
    }
    if (!writeTimer_) {
        writeTimer_ = clock_.timer([this] { endWhenWritten(); });
    }
    writeTimer_->setInterval(500ms);
    writeTimer_->setEnabled(true);
}

void frmMain::end()
{
    clock_.end();
    QCoreApplication::exit(); // quit() asks every window first, and one may refuse
}

void frmMain::releaseModem()
{
    MSComm1_.close();
    recordsets_.OpenRecordsets();
    if (module_.ModemReady) {
        writeModemRow(recordsets_.rsModem, {});
    }
}

/// From the last that was opened to the first.
bool frmMain::unloadOtherScreens()
{
    std::map<int, QPointer<QWidget>, std::greater<>> screens;
    for (const auto &[name, screen] : screens_) {
        screens[screen.opened] = screen.window.get();
    }
    for (const auto &[opened, window] : screens) {
        if (window) { // closing one may ask, and anything may happen meanwhile
            window->close();
        }
    }
    return std::ranges::none_of(
        screens, [](const auto &screen) { return screen.second && screen.second->isVisible(); });
}

void frmMain::saveSettings()
{
    const bool normal = !isMaximized() && !isFullScreen();
    saveWindow(settings_, normal ? QRect(pos(), size()) : normalGeometry());
    settings_.save(QStringLiteral("KeySelect"), module_.KeySelect);
    settings_.save(QStringLiteral("LastComPort"), QString::number(module_.ActiveComPort));
    settings_.save(QStringLiteral("DBPath"), module_.DatabasePath);
    settings_.save(QStringLiteral("SMSREPORT"), flagText(module_.SmsReportOn));
    settings_.save(QStringLiteral("CountryCode"), module_.CountryCode);
    settings_.save(QStringLiteral("LogoCountryCode"), module_.LogoCountryCode);
    settings_.save(QStringLiteral("HostName"), hostName());
    settings_.save(QStringLiteral("Port"), port());
    saveSizes(settings_, kColumnsKey, *ui_->columns);
    saveSizes(settings_, kRowsKey, *ui_->usersColumn);
}
