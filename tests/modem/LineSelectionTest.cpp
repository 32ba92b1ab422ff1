#include "ModemWorld.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

struct Selection : testing::Test, ModemWorld {
    void connect()
    {
        person.answers(u"Kobler til: 127.0.0.1 Port 23"_qs);
        link.selection.cmdConnect();
    }
};

/// What can be seen and used: group, terminal, connect and disconnect (visible, enabled), address,
/// commands.
std::string seen(const NetworkControls &c)
{
    const auto button = [](bool visible, bool enabled) {
        return std::string(visible ? "v" : "-") + (enabled ? "e" : "-");
    };
    return std::string(c.groupVisible ? "group " : "") + (c.terminalVisible ? "terminal " : "") +
           "connect:" + button(c.connectVisible, c.connectEnabled) +
           " disconnect:" + button(c.disconnectVisible, c.disconnectEnabled) +
           (c.addressEnabled ? " address" : "") + (c.commandsEnabled ? " commands" : "");
}

const std::string kHidden = "connect:-e disconnect:-- address";
const std::string kConnected = "group terminal connect:-- disconnect:ve commands";
const std::string kDisconnected = "group terminal connect:ve disconnect:-- address";

TEST_F(Selection, TicksThePortThatIsTaken)
{
    const std::tuple<int, int, PortMenuEntry> kPorts[] = {
        {0, 0, PortMenuEntry::ComNone},   {1, 0, PortMenuEntry::Com1},
        {2, 2, PortMenuEntry::Com2},      {3, 0, PortMenuEntry::Com3},
        {4, 0, PortMenuEntry::Com4},      {7, 7, PortMenuEntry::ComOther},
        {7, 0, PortMenuEntry::Untouched}, {254, 254, PortMenuEntry::ComOther}};
    for (const auto &[active, other, entry] : kPorts) {
        module.ActiveComPort = static_cast<quint8>(active);
        module.OtherComPort = static_cast<quint8>(other);
        link.selection.SelectModemLine();
        EXPECT_EQ(view.tick, entry) << active;
        EXPECT_EQ(port.isOpen(), active != 0);
        EXPECT_EQ(seen(view.controls), kHidden);
    }
    EXPECT_EQ(port.device, u"COM254"_qs);
}

TEST_F(Selection, StartsTheModemOnThePortOfTheMenu)
{
    link.selection.mnuComPortCom(3);
    EXPECT_EQ(port.device, u"COM3"_qs);
    EXPECT_TRUE(module.ModemReady);
    link.selection.mnuComPortCom(0);
    EXPECT_FALSE(port.isOpen());
    EXPECT_FALSE(module.ModemReady);
    EXPECT_EQ(view.tick, PortMenuEntry::ComNone);
}

TEST_F(Selection, ShowsAPortThatCannotBeOpenedAndStartsNothing)
{
    port.unplug();
    person.answers(u"No such port: COM2"_qs);
    link.selection.mnuComPortCom(2);
    EXPECT_EQ(person.titles, QStringList{QString()});
    EXPECT_EQ(comModem.commands.size(), 0);
    // At the start of the program the failure is the caller's.
    EXPECT_THROW(link.selection.SelectModemLine(), RuntimeFailure);
}

TEST_F(Selection, TakesANumberForAnotherPort)
{
    person.types(u"Com Port"_qs, u" 7 "_qs);
    link.selection.mnuComPortComOther();
    EXPECT_EQ(person.lastPrompt, u"Velg Com Port\nCOM1, COM7"_qs);
    EXPECT_EQ(person.lastPreset, u"5"_qs);
    EXPECT_EQ(port.device, u"COM7"_qs);
    EXPECT_EQ(module.OtherComPort, 7);
    EXPECT_EQ(view.otherCaption, u"ComOther(7)"_qs);
    EXPECT_EQ(view.tick, PortMenuEntry::ComOther);
    EXPECT_TRUE(module.ModemReady);
}

TEST_F(Selection, RefusesWhatIsNoPortNumberAndKeepsTheLine)
{
    link.selection.mnuComPortCom(1);
    for (const QString &typed : {QString(), u"to"_qs, u"256"_qs, u"-1"_qs}) {
        person.types(u"Com Port"_qs, typed);
        person.answers(QString());
        link.selection.mnuComPortComOther();
        EXPECT_EQ(module.ActiveComPort, 1) << typed.toStdString();
        EXPECT_TRUE(port.isOpen());
    }
}

TEST_F(Selection, ConnectsToTheNetworkModemThatIsTyped)
{
    person.types(u"Nettverksmodem"_qs, u"10.0.0.7"_qs);
    person.types(u"Nettverksmodem"_qs, u"2001"_qs);
    person.answers(u"Kobler til: 10.0.0.7 Port 2001"_qs);
    link.selection.mnuComPortWinsock();
    EXPECT_EQ(socket.host, u"10.0.0.7"_qs);
    EXPECT_EQ(socket.port, 2001);
    EXPECT_EQ(module.ActiveComPort, 255);
    EXPECT_EQ(view.tick, PortMenuEntry::Winsock);
    EXPECT_EQ(seen(view.controls), kConnected);
    EXPECT_EQ(view.statusBox, u"Frakoblet fra modem\nKobler til: 10.0.0.7 Port 2001\n"
                              "Tilkobling til modem er vellykket\n"_qs);
    EXPECT_TRUE(module.ModemReady);
    EXPECT_FALSE(person.busy);
}

TEST_F(Selection, LeavesTheGroupInViewWhenTheAddressIsNotGiven)
{
    for (const bool hostGiven : {false, true}) {
        person.types(u"Nettverksmodem"_qs, hostGiven ? u"10.0.0.7"_qs : QString());
        if (hostGiven) {
            person.types(u"Nettverksmodem"_qs, QString());
        }
        link.selection.mnuComPortWinsock();
        EXPECT_TRUE(view.controls.groupVisible);
        EXPECT_EQ(module.ActiveComPort, 0);
        EXPECT_EQ(view.host, u"127.0.0.1"_qs);
        EXPECT_EQ(person.lastPreset, hostGiven ? u"23"_qs : u"127.0.0.1"_qs);
    }
}

TEST_F(Selection, AsksAtTheStartOnTheNetworkModem)
{
    module.ActiveComPort = 255;
    person.answers(u"Kobler til: 127.0.0.1 Port 23"_qs, Answer::Cancel);
    link.selection.SelectModemLine();
    EXPECT_EQ(socket.state(), TcpSocket::State::Closed);
    EXPECT_EQ(module.ActiveComPort, 255);
    EXPECT_EQ(view.tick, PortMenuEntry::Winsock);
    // On purpose: the address and the busy pointer stay as the question left them.
    EXPECT_EQ(seen(view.controls), "group terminal connect:ve disconnect:-- commands");
    EXPECT_TRUE(person.busy);
}

TEST_F(Selection, RefusesWhatIsNoTcpPort)
{
    for (const auto &[typed, message] :
         {std::pair{u"telnet"_qs, u"default telnet port er 23. Ikke skriv tekst her!!."_qs},
          std::pair{QString(), u"default telnet port er 23. Ikke skriv tekst her!!."_qs},
          std::pair{u"0"_qs, u"65535"_qs}, std::pair{u"65536"_qs, u"65535"_qs},
          std::pair{u"-23"_qs, u"65535"_qs}, std::pair{u"2.5"_qs, u"65535"_qs}}) {
        view.portText = typed;
        person.answers(message);
        link.selection.cmdConnect();
        EXPECT_EQ(socket.state(), TcpSocket::State::Closed);
        EXPECT_EQ(view.statusBox, QString());
        EXPECT_FALSE(person.busy);
    }
}

TEST_F(Selection, ConnectsWithNothingLeftOfTheLineBefore)
{
    openCom();
    link.line.SendData(u"old"_qs);
    link.line.socketData(QByteArray::fromHex("FFFA01")); // half a telnet command
    connect();
    EXPECT_FALSE(view.terminal.contains(u"old"_qs));
    EXPECT_TRUE(module.ModemReady);
}

TEST_F(Selection, LeavesTheModemWhenItDisconnects)
{
    connect();
    EXPECT_EQ(seen(view.controls), "connect:-- disconnect:ve commands");
    link.selection.cmdDisconnect();
    EXPECT_EQ(socket.state(), TcpSocket::State::Closed);
    EXPECT_EQ(module.ActiveComPort, 0);
    EXPECT_FALSE(module.ModemReady);
    EXPECT_EQ(modemRow(u"ModemManufacturer"_qs), u"No Modem"_qs);
    EXPECT_TRUE(view.statusBox.endsWith(u"Frakoblet fra modem\n"_qs));
}

TEST_F(Selection, TakesTwoChoicesToLeaveAConnectedNetworkModem)
{
    connect();
    link.selection.mnuComPortCom(1);
    EXPECT_FALSE(port.isOpen());
    EXPECT_EQ(view.tick, PortMenuEntry::ComNone);
    link.selection.mnuComPortCom(1);
    EXPECT_TRUE(port.isOpen());
    EXPECT_TRUE(module.ModemReady);
}

TEST_F(Selection, TellsOfARefusedConnection)
{
    socket.answers = false;
    connect();
    EXPECT_TRUE(view.statusBox.endsWith(
        u"En Winsock feil er oppstått.  Feil No. 10061 Connection refused\n"_qs));
    EXPECT_EQ(socket.state(), TcpSocket::State::Closed);
    EXPECT_EQ(module.ActiveComPort, 255);
    EXPECT_FALSE(module.ModemReady);
    EXPECT_FALSE(link.flags.ModemInitRunning);
    EXPECT_EQ(seen(view.controls), "connect:ve disconnect:-- address");
}

TEST_F(Selection, KeepsTheModemReadyWhenTheFarSideCloses)
{
    connect();
    socket.closeByFarSide();
    clock.run(1ms);
    EXPECT_TRUE(view.statusBox.endsWith(u"Frakoblet fra modem\n"_qs));
    EXPECT_EQ(seen(view.controls), "connect:ve disconnect:-- address");
    // The socket is no longer connected then, so nobody releases the modem.
    EXPECT_TRUE(module.ModemReady);
    EXPECT_EQ(module.ActiveComPort, 255);
}

TEST_F(Selection, ShowsAndHidesTheTerminalWithAndWithoutTheGroup)
{
    for (const quint8 line : {quint8{1}, kNetworkModem}) {
        const bool network = line == kNetworkModem;
        module.ActiveComPort = line;
        if (network) {
            person.answers(u"Kobler til"_qs);
        }
        link.selection.SelectModemLine();
        const std::string before = seen(view.controls);
        EXPECT_EQ(view.controls.terminalVisible, network);
        link.selection.ComShowCom();
        EXPECT_EQ(view.controls.terminalVisible, !network);
        EXPECT_EQ(view.controls.groupVisible, network);
        link.selection.ComShowCom();
        EXPECT_EQ(seen(view.controls), before);
    }
}

TEST_F(Selection, TakesCommandsByHandAndShowsWhyItCannot)
{
    openCom();
    link.selection.Command2();
    EXPECT_EQ(comModem.commands, QList<QByteArray>{"AT"});
    link.selection.Command3();
    EXPECT_TRUE(module.ModemReady);
    port.close();
    person.answers(u"The port is not open"_qs);
    link.selection.Command2();
}

TEST_F(Selection, EndsEveryHandlerInSilenceWithTheProgram)
{
    clock.after(700ms, [&] { clock.end(); });
    person.answers(u"Kobler til"_qs);
    module.ActiveComPort = 255;
    EXPECT_THROW(link.selection.SelectModemLine(), ProgramEnds);
    link.selection.Command3();
    link.selection.cmdDisconnect();
    link.selection.mnuComPortCom(1);
    EXPECT_FALSE(module.ModemReady);
}

TEST(ModemLink, LetsGoOfTheSocketAndTheTimersWhenItGoes)
{
    VirtualClock clock;
    ScriptedOperator person(clock);
    FakeHost host;
    FakeSerialPort port;
    FakeTcpSocket socket(clock);
    RecordingView view;
    Module1 module;
    Recordsets recordsets(module, person);
    socket.connectTo(u"modem"_qs, 23);
    {
        ModemLink link(clock, host, person, port, socket, view, module, recordsets);
        module.ModemReady = true;
        link.TimerCom->setEnabled(true);
        link.pace.restart(100ms);
    }
    socket.feed("late\r");
    socket.fail(10054, u"reset"_qs);
    socket.closeByFarSide();
    clock.run(5s);
    EXPECT_EQ(view.statusBox, QString());
}

} // namespace
