#include "modem/LineSelection.h"

#include "data/Module1.h"
#include "modem/ModemInitialiser.h"
#include "modem/ModemLine.h"
#include "modem/PassOn.h"
#include "platform/Host.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/SerialPort.h"
#include "platform/TcpSocket.h"
#include "platform/Text.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr quint8 kNoLine = 0;
constexpr milliseconds kConnecting = 500ms;

/// A line for each port: what to type, and what it stands for.
QString listed(const std::vector<ComPort> &ports)
{
    QString lines;
    for (const ComPort &port : ports) {
        const QString what = port.description.isEmpty() ? QString() : u" – "_qs + port.description;
        lines += u"\n%1 = "_qs.arg(port.number) + port.name + what;
    }
    return lines.isEmpty() ? u'\n' + QCoreApplication::translate("LineSelection",
                                                                 "Maskinen har ingen serieport nå.")
                           : lines;
}

/// Nothing when the text is no number.
/// @throws RuntimeFailure when the number is none of a TCP port.
std::optional<quint16> tcpPort(const QString &text)
{
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    if (!isNumber) {
        return {};
    }
    const auto port = static_cast<quint16>(qBound(0.0, number, 65535.0));
    if (port == 0 || port != number) {
        throw RuntimeFailure(QCoreApplication::translate(
            "LineSelection", "Portnummeret må være et helt tall fra 1 til 65535"));
    }
    return port;
}

} // namespace

LineSelection::LineSelection(Clock &clock, const Host &host, Operator &person, SerialPort &MSComm1,
                             TcpSocket &Winsock1, ModemView &view, Module1 &module, ModemLine &line,
                             ModemInitialiser &initialiser)
    : clock_(clock),
      host_(host),
      operator_(person),
      MSComm1_(MSComm1),
      Winsock1_(Winsock1),
      view_(view),
      module_(module),
      line_(line),
      initialiser_(initialiser)
{
    listenToSocket();
}

LineSelection::~LineSelection()
{
    Winsock1_.setEvents({.connected = [] {},
                         .data = [](const QByteArray &) {},
                         .failure = [](int, const QString &) {},
                         .closedByFarSide = [] {}});
}

void LineSelection::listenToSocket()
{
    TcpSocket::Events events;
    events.connected = [this] {
        handle([&] {
            view_.appendStatusBox(u"Tilkobling til modem er vellykket\n"_qs);
            controls_.disconnectEnabled = true;
            showControls();
        });
    };
    events.data = [this](const QByteArray &bytes) { handle([&] { line_.socketData(bytes); }); };
    events.failure = [this](int number, const QString &description) {
        handle([&] {
            view_.appendStatusBox(u"En Winsock feil er oppstått.  Feil No. "_qs +
                                  QString::number(number) + u' ' + description + u'\n');
            showDisconnected();
            Winsock1_.close();
        });
    };
    events.closedByFarSide = [this] { cmdDisconnect(); };
    Winsock1_.setEvents(std::move(events));
}

void LineSelection::handle(const std::function<void()> &handler)
{
    shown(operator_, {}, handler);
}

void LineSelection::SelectModemLine()
{
    cmdDisconnect();
    passOnTheEnd(clock_);
    MSComm1_.close();
    const auto chosen = qScopeGuard([this] {
        tickMenu();
        showGroup(module_.ActiveComPort == kNetworkModem);
    });
    // A connected network modem was let go just now, which left no line at all: whatever was
    // chosen, it takes a second choice.
    if (module_.ActiveComPort == kNetworkModem) {
        cmdConnect();
    } else if (module_.ActiveComPort != kNoLine) {
        MSComm1_.open(host_.comPortDevice(module_.ActiveComPort));
        cmdDisconnect();
    }
    passOnTheEnd(clock_);
}

void LineSelection::choose(quint8 port, bool isOther)
{
    handle([&] {
        const quint8 otherBefore = module_.OtherComPort;
        module_.OtherComPort = isOther ? port : otherBefore;
        const quint8 before = std::exchange(module_.ActiveComPort, port);
        auto goBack = qScopeGuard([&] { // ahead of the box about the failure
            module_.OtherComPort = otherBefore;
            goBackTo(before);
        });
        SelectModemLine();
        goBack.dismiss();
        if (isOther) {
            view_.setOtherPortCaption(u"ComOther("_qs + QString::number(port) + u')');
        }
    });
    handle([&] {
        passOnTheEnd(clock_);
        initialiser_.InitModem();
    });
}

void LineSelection::goBackTo(quint8 port)
{
    const bool hasFailed = port == module_.ActiveComPort;
    module_.ActiveComPort = port;
    if (!hasFailed && port != kNoLine && port != kNetworkModem) {
        kept([&] { MSComm1_.open(host_.comPortDevice(port)); });
    }
    tickMenu();
    showGroup(port == kNetworkModem);
}

void LineSelection::tickMenu()
{
    static constexpr PortMenuEntry kEntries[] = {PortMenuEntry::ComNone, PortMenuEntry::Com1,
                                                 PortMenuEntry::Com2, PortMenuEntry::Com3,
                                                 PortMenuEntry::Com4};
    const quint8 port = module_.ActiveComPort;
    if (port < std::size(kEntries)) {
        view_.tickPort(kEntries[port]);
    } else if (port == kNetworkModem) {
        view_.tickPort(PortMenuEntry::Winsock);
    } else {
        view_.tickPort(port == module_.OtherComPort ? PortMenuEntry::ComOther
                                                    : PortMenuEntry::Untouched);
    }
}

void LineSelection::mnuComPortCom(int port)
{
    choose(byteOf(port), false);
}

void LineSelection::mnuComPortComOther()
{
    handle([&] {
        const std::vector<ComPort> ports = host_.comPorts();
        const QString prompt = module_.texts.velgComPort + listed(ports);
        // Cancel gives an empty text, which is no number either.
        const quint8 number = toByte(operator_.inputBox(prompt, u"Com Port"_qs, u"5"_qs));
        if (const auto port = std::ranges::find(ports, number, &ComPort::number);
            port != ports.end()) {
            host_.keepComPort(*port);
        }
        choose(number, true);
    });
}

void LineSelection::mnuComPortWinsock()
{
    handle([&] {
        showGroup(true); // it stays, whatever the answers
        const QString title = u"Nettverksmodem"_qs;
        const QString name =
            operator_.inputBox(u"Vertsnavn (eller IP adresse)"_qs, title, view_.hostName());
        if (name.isEmpty()) {
            return;
        }
        const QString port = operator_.inputBox(u"Port Nummer"_qs, title, view_.port());
        if (port.isEmpty()) {
            return;
        }
        module_.ActiveComPort = kNetworkModem;
        view_.setHostName(name);
        view_.setPort(port);
        SelectModemLine();
    });
}

void LineSelection::cmdConnect()
{
    handle([&] { connectLine(); });
}

void LineSelection::connectLine()
{
    const QString name = view_.hostName();
    const std::optional<quint16> port = tcpPort(view_.port());
    if (!port) {
        operator_.messageBox(u"default telnet port er 23. Ikke skriv tekst her!!."_qs, {},
                             Buttons::Ok);
        return;
    }
    operator_.setBusy(&module_, true);
    controls_.connectEnabled = false;
    controls_.addressEnabled = false;
    controls_.commandsEnabled = true;
    showControls();
    line_.clearTerminal();

    const QString words = u"Kobler til: "_qs + name + u" Port "_qs + view_.port();
    view_.appendStatusBox(words + u'\n');
    const bool agreed = operator_.messageBox(words, {}, Buttons::OkCancel) == Answer::Ok;
    controls_.connectVisible = !agreed;
    controls_.connectEnabled = !agreed;
    controls_.disconnectVisible = agreed;
    controls_.disconnectEnabled = agreed;
    showControls();
    if (!agreed) {
        // The address and the busy pointer stay as they are until the line is chosen anew.
        return;
    }
    line_.socketConnecting();
    Winsock1_.connectTo(name, *port);
    module_.ActiveComPort = kNetworkModem;
    clock_.sleep(kConnecting);
    initialiser_.InitModem();
}

void LineSelection::cmdDisconnect()
{
    handle([&] { disconnectLine(); });
}

void LineSelection::disconnectLine()
{
    view_.appendStatusBox(u"Frakoblet fra modem\n"_qs);
    showDisconnected();
    if (Winsock1_.state() == TcpSocket::State::Connected) {
        module_.ActiveComPort = kNoLine;
        initialiser_.InitModem();
    }
    Winsock1_.close();
}

void LineSelection::ComShowCom()
{
    handle([&] {
        // By the caption: the group brings the box without changing it.
        controls_.offersToHide = !controls_.offersToHide;
        controls_.terminalVisible = controls_.offersToHide;
        showControls();
    });
}

void LineSelection::Command2()
{
    handle([&] { line_.SendData(u"AT\r"_qs); });
}

void LineSelection::Command3()
{
    handle([&] { initialiser_.InitModem(); });
}

void LineSelection::showGroup(bool visible)
{
    controls_.groupVisible = visible;
    controls_.terminalVisible = visible;
    if (!visible) {
        controls_.connectVisible = false;
        controls_.disconnectVisible = false;
    }
    showControls();
}

void LineSelection::showDisconnected()
{
    controls_.connectVisible = true;
    controls_.connectEnabled = true;
    controls_.addressEnabled = true;
    controls_.commandsEnabled = false;
    controls_.disconnectVisible = false;
    controls_.disconnectEnabled = false;
    showControls();
}

void LineSelection::showControls()
{
    view_.showNetworkControls(controls_);
}
