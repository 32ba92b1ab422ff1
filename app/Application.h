#pragma once

#include "data/Module1.h"

#include <functional>
#include <memory>

class Clock;
class Host;
class Operator;
class QWidget;
class SerialPort;
class SettingsStore;
class TcpSocket;
class frmMain;
class frmSplash;

/// The machine that the program runs on, and the person before it.
struct Machine {
    Clock &clock;
    Operator &person;
    SettingsStore &settings;
    const Host &host;
    SerialPort &MSComm1;
    TcpSocket &Winsock1;
};

/// The program, put together: login, splash, main screen.
class Application {
public:
    explicit Application(const Machine &machine);
    ~Application();
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    /// Everything up to the main screen on show. Gives false when the program ended before: the
    /// login was refused or cancelled, the database could not be opened, or close() came first.
    bool start();
    /// The main screen is unloaded; before there is one the program just ends. It may be called
    /// from any event.
    void close();

    /// Null before the main screen was created.
    frmMain *mainScreen() const { return frmMain_.get(); }
    Module1 &module() { return module_; }

    /// Told the country code at the start and whenever the language changes.
    std::function<void(const QString &CountryCode)> onLanguage;

private:
    bool login();
    void setLanguage(const QString &CountryCode);
    void openMainScreen(frmSplash &splash);
    void waitWhileVisible(const QWidget &screen);

    Machine machine_;
    Module1 module_;
    std::unique_ptr<frmMain> frmMain_;
};
