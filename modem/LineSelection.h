#pragma once

#include "modem/ModemView.h"
#include "platform/Clock.h"

#include <QString>

#include <functional>

class Host;
class ModemInitialiser;
class ModemLine;
class Operator;
class SerialPort;
class TcpSocket;
struct Module1;

/// Which line the modem is on: the port menu, the network modem's buttons and the events of its
/// socket. All but SelectModemLine are event handlers, which show their failures.
class LineSelection {
public:
    LineSelection(Clock &clock, const Host &host, Operator &person, SerialPort &MSComm1,
                  TcpSocket &Winsock1, ModemView &view, Module1 &module, ModemLine &line,
                  ModemInitialiser &initialiser);
    ~LineSelection();
    LineSelection(const LineSelection &) = delete;
    LineSelection &operator=(const LineSelection &) = delete;

    /// Makes ActiveComPort true. The caller starts the modem, but for the network modem, whose
    /// connection dialogue does it. The menu has its tick also where the port cannot be opened.
    /// @throws RuntimeFailure when the COM port cannot be opened.
    /// @throws ProgramEnds when the program ends meanwhile.
    void SelectModemLine();

    void cmdConnect();
    void cmdDisconnect();
    /// A port that cannot be opened gives way to the one before, and so the next start doesn't come
    /// up on it.
    /// @param port 0 for none, 1 to 4
    void mnuComPortCom(int port);
    /// The same for a number that is typed, with the machine's ports in sight; one that had no
    /// number of its own keeps it.
    void mnuComPortComOther();
    void mnuComPortWinsock();
    /// A click on ComShowCom, Image1 or Image2.
    void ComShowCom();
    /// "Send AT kommando"
    void Command2();
    /// "Start Modem"
    void Command3();

private:
    void listenToSocket();
    void handle(const std::function<void()> &handler);
    void choose(quint8 port, bool isOther);
    void goBackTo(quint8 port);
    void connectLine();
    void disconnectLine();
    void tickMenu();
    void showGroup(bool visible);
    void showDisconnected();
    void showControls();

    Clock &clock_;
    const Host &host_;
    Operator &operator_;
    SerialPort &MSComm1_;
    TcpSocket &Winsock1_;
    ModemView &view_;
    Module1 &module_;
    ModemLine &line_;
    ModemInitialiser &initialiser_;
    NetworkControls controls_;
};
