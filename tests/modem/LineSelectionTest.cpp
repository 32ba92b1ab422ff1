#include "ModemWorld.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

struct Selection : testing::Test, ModemWorld {
    void connect()
    {
        person.answers(u"Kobler til: 127.0.0.1 Port 23"_qs, Answer::Ok);
        link.selection.cmdConnect();
    }
    /// What can be seen and used: group, terminal, connect and disconnect (visible, enabled),
    /// address, commands.
    std::string seen() const
    {
        const NetworkControls &c = view.controls;
        const auto button = [](bool visible, bool enabled) {
            return std::string(visible ? "v" : "-") + (enabled ? "e" : "-");
        };
        return std::string(c.groupVisible ? "group " : "") +
               (c.terminalVisible ? "terminal " : "") +
               "connect:" + button(c.connectVisible, c.connectEnabled) +
               " disconnect:" + button(c.disconnectVisible, c.disconnectEnabled) +
               (c.addressEnabled ? " address" : "") + (c.commandsEnabled ? " commands" : "");
    }
};

TEST_F(Selection, TicksThePortThatIsTaken)
{
    const std::tuple<quint8, quint8, PortMenuEntry> kPorts[] = {
        {0, 0, PortMenuEntry::ComNone},   {1, 0, PortMenuEntry::Com1},
        {2, 2, PortMenuEntry::Com2},      {4, 0, PortMenuEntry::Com4},
        {7, 0, PortMenuEntry::Untouched}, {254, 254, PortMenuEntry::ComOther}};
    for (const auto &[active, other, entry] : kPorts) {
        module.ActiveComPort = active;
        module.OtherComPort = other;
        link.selection.SelectModemLine();
        EXPECT_EQ(view.tick, entry) << int(active);
        EXPECT_EQ(port.isOpen(), active != 0);
        EXPECT_EQ(seen(), "connect:-e disconnect:-- address");
    }
    EXPECT_EQ(port.device, u"COM254"_qs);
}

TEST_F(Selection, ShowsAPortThatCannotBeOpenedAndStartsNothing)
{
    port.unplug();
    person.answers(u"No such port: COM2"_qs);
    link.selection.mnuComPortCom(2);
    EXPECT_EQ(port.written, QByteArray());
    person.answers(u"The port is not open"_qs);
    link.selection.Command2();
    // At the start of the program the failure is the caller's.
    module.ActiveComPort = 2;
    EXPECT_THROW(link.selection.SelectModemLine(), RuntimeFailure);
}

TEST_F(Selection, TakesOnlyANumberForAnotherPort)
{
    person.types(u"Com Port"_qs, u" 7 "_qs);
    link.selection.mnuComPortComOther();
    EXPECT_EQ(person.lastPreset, u"5"_qs);
    EXPECT_EQ(view.otherCaption, u"ComOther(7)"_qs);
    EXPECT_EQ(view.tick, PortMenuEntry::ComOther);
    EXPECT_TRUE(module.ModemReady);
    for (const QString &typed : {QString(), u"to"_qs, u"256"_qs, u"-1"_qs}) {
        person.types(u"Com Port"_qs, typed);
        person.answers(QString());
        link.selection.mnuComPortComOther();
        EXPECT_EQ(module.ActiveComPort, 7) << typed.toStdString();
        EXPECT_TRUE(port.isOpen());
    }
    EXPECT_EQ(port.device, u"COM7"_qs);
}

TEST_F(Selection, ConnectsToTheNetworkModemThatIsTyped)
{
    person.types(u"Nettverksmodem"_qs, u"10.0.0.7"_qs);
    person.types(u"Nettverksmodem"_qs, u"2001"_qs);
    person.answers(u"Kobler til: 10.0.0.7 Port 2001"_qs, Answer::Ok);
    link.selection.mnuComPortWinsock();
    EXPECT_EQ(socket.host, u"10.0.0.7"_qs);
    EXPECT_EQ(socket.port, 2001);
    EXPECT_EQ(view.tick, PortMenuEntry::Winsock);
    EXPECT_EQ(seen(), "group terminal connect:-- disconnect:ve commands");
    EXPECT_EQ(view.statusBox, u"Frakoblet fra modem\nKobler til: 10.0.0.7 Port 2001\n"
                              "Tilkobling til modem er vellykket\n"_qs);
    EXPECT_TRUE(module.ModemReady);
    EXPECT_FALSE(person.isBusy());
}

TEST_F(Selection, GoesBackWhenTheAddressOrTheConnectionIsNotWanted)
{
    person.types(u"Nettverksmodem"_qs, u"10.0.0.7"_qs);
    person.types(u"Nettverksmodem"_qs, {});
    link.selection.mnuComPortWinsock();
    EXPECT_TRUE(view.controls.groupVisible);
    EXPECT_EQ(module.ActiveComPort, 0);
    EXPECT_EQ(view.host, u"127.0.0.1"_qs);
    module.ActiveComPort = 255;
    person.answers(u"Kobler til: 127.0.0.1 Port 23"_qs, Answer::Cancel);
    link.selection.SelectModemLine();
    EXPECT_EQ(socket.state(), TcpSocket::State::Closed);
    EXPECT_EQ(module.ActiveComPort, 255);
    // On purpose: the address and the busy pointer stay as the question left them.
    EXPECT_EQ(seen(), "group terminal connect:ve disconnect:-- commands");
    EXPECT_TRUE(person.isBusy());
    for (const bool shows : {true, false, true}) { // the group has brought the box already
        link.selection.ComShowCom();
        EXPECT_EQ(view.controls.terminalVisible, shows);
        EXPECT_EQ(view.controls.offersToHide, shows);
    }
}

TEST_F(Selection, RefusesWhatIsNoTcpPort)
{
    const QString noNumber = u"default telnet port er 23. Ikke skriv tekst her!!."_qs;
    for (const auto &[typed, message] :
         {std::pair{u"telnet"_qs, noNumber}, std::pair{QString(), noNumber},
          std::pair{u"0"_qs, u"65535"_qs}, std::pair{u"65536"_qs, u"65535"_qs},
          std::pair{u"-23"_qs, u"65535"_qs}, std::pair{u"2.5"_qs, u"65535"_qs}}) {
        view.portText = typed;
        person.answers(message);
        link.selection.cmdConnect();
        EXPECT_EQ(view.statusBox, QString());
        EXPECT_FALSE(person.isBusy());
    }
}

TEST_F(Selection, ConnectsWithNothingLeftOfTheLineBefore)
{
    open(false);
    link.line.SendData(u"old"_qs);
    link.line.socketData("old\r\n" + QByteArray::fromHex("FFFA01")); // half a telnet command
    port.close();
    connect();
    EXPECT_FALSE(view.terminal.contains(u"old"_qs));
    EXPECT_TRUE(module.ModemReady);
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

TEST_F(Selection, EndsEveryHandlerInSilenceWithTheProgram)
{
    clock.after(700ms, [&] { clock.end(); });
    person.answers(u"Kobler til"_qs, Answer::Ok);
    module.ActiveComPort = 255;
    EXPECT_THROW(link.selection.SelectModemLine(), ProgramEnds);
    link.selection.Command3();
    link.selection.cmdDisconnect();
    link.selection.mnuComPortCom(1);
    EXPECT_FALSE(module.ModemReady);
}

TEST_F(Selection, LetsGoOfTheSocketAndTheTimersWhenTheLinkGoes)
{
    open(true);
    {
        ModemLink other(clock, host, person, port, socket, view, module, recordsets);
        module.ModemReady = true;
        other.TimerCom->setEnabled(true);
        other.pace.restart(100ms);
    }
    view.statusBox.clear();
    socket.feed("late\r");
    socket.fail(10054, u"reset"_qs);
    socket.closeByFarSide();
    clock.run(5s);
    EXPECT_EQ(view.statusBox, QString());
}

} // namespace
