#pragma once

#include "platform/Clock.h"
#include "platform/TelnetFilter.h"

#include <QString>

#include <functional>
#include <utility>

class ModemView;
class SerialPort;
class TcpSocket;
struct Module1;

/// The line to the modem, whichever of the two it is: the one way out, the two ways in, and the
/// terminal box that shows the dialogue. All reads yield to pending events on each turn.
class ModemLine {
public:
    ModemLine(Clock &clock, Module1 &module, SerialPort &MSComm1, TcpSocket &Winsock1,
              ModemView &view);

    /// Sends the string as it stands; callers add the carriage return. A socket that is not
    /// connected swallows it.
    /// @throws RuntimeFailure on a COM port that is closed or gone.
    void SendData(const QString &OutString);
    /// Stands ready for a second consumer of what comes in; nothing is done with it.
    void ReceiveData(const QString &InputString);
    /// The next line without its line end. Behind the time-out (2 s on a COM port, 1 s on the
    /// network modem) an empty string, or what came of a line that never ended; of a line over
    /// 64 KiB a part.
    QString ReadModemLine();
    /// ">" or an empty string behind the time-out.
    QString ReadModemPrompt();
    /// The same for lines of any length, as texts have them. A line whose end does not come in time
    /// is no line yet: the next call has the whole. What is sent meanwhile gives it up.
    QString ReadWholeLine();
    /// So many bare line ends have been read over since the last call, or since something was sent.
    int takeBareEnds() { return std::exchange(bareEnds_, 0); }
    /// Reads lines until "OK" (true), over 100 lines, or an empty line behind the third (false).
    /// Each that is no "OK" is handed over, whole.
    bool WaitForModemOK(const std::function<void(const QString &)> &use = {});
    /// What was among the lines read since the last call.
    struct Signs {
        bool echo = false; ///< the command sent last came back
        bool boot = false; ///< the modem said that it starts
    };
    Signs takeSigns() { return std::exchange(signs_, {}); }
    /// Whether a tick may take a line: a character on the COM port, a carriage return from TCP.
    bool hasLine() const;
    /// Whether the modem goes on behind the line that ReadWholeLine took last. Waits twice as long
    /// as any line of this answer has kept it waiting, up to 10 s, and no shorter than asked for.
    bool lineFollows(milliseconds atLeast = 300ms);
    /// Whether commands have somewhere to go: an open port, or a socket that is not closed.
    bool isOpen() const;

    /// A new connection: nothing is known of the far side's telnet, and nothing is left of what
    /// the old one brought.
    void socketConnecting();
    /// Appends what the socket brought to ModemRxBuffer, without its telnet commands, which are
    /// answered. What reading a line would lose there waits outside. Of more than 64 KiB that
    /// nobody reads, the newest are kept.
    void socketData(const QByteArray &bytes);
    void clearTerminal();

    /// What TCP has brought and nothing has read, as far as a read keeps it: the modem's bytes as
    /// characters 0 to 255.
    QString ModemRxBuffer;

private:
    bool onNetwork() const;
    using Test = bool (*)(const QString &);
    /// Each adds to the line what comes of it; true at its end.
    bool readLine(QString &line, Test isLine);
    bool comLine(QString &line, Test isLine);
    bool networkLine(QString &line, Test isLine);
    QString taken(const QString &read);
    bool skipLineEnds();
    QString comPrompt();
    QString networkPrompt();
    void writeTerminal(const QString &text);
    void bring(qsizetype characters);
    void bringWhatIsKept();

    Clock &clock_;
    Module1 &module_;
    SerialPort &MSComm1_;
    TcpSocket &Winsock1_;
    ModemView &view_;
    QString terminal_;
    TelnetFilter telnet_;
    QString lastSent_;
    Signs signs_;
    milliseconds widestGap_{0}; ///< between two lines of the answer to what was sent last
    milliseconds lastLine_{0};  ///< when it was taken; 0 for none yet
    bool isAwaited_ = false;    ///< the next one was not there when it was asked for
    QString begun_;             ///< of a line whose end has not come
    int bareEnds_ = 0;
    QString arrived_; ///< by TCP, behind what is in ModemRxBuffer
};
