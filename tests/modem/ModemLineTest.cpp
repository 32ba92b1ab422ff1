#include "ModemWorld.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

namespace {

using Lines = QStringList;

struct Shape {
    const char *name;
    QByteArray said;
    Lines onCom;
    Lines onNetwork;
};

Shape both(const char *name, const QByteArray &said, const Lines &lines)
{
    return {name, said, lines, lines};
}

class LineShapes : public testing::TestWithParam<std::tuple<Shape, bool>> {};

TEST_P(LineShapes, AreReadLineByLine)
{
    const auto &[shape, network] = GetParam();
    ModemBench world;
    world.open(network);
    world.say(network, shape.said);
    for (const QString &expected : network ? shape.onNetwork : shape.onCom) {
        EXPECT_EQ(world.link.line.ReadModemLine(), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LineShapes,
    testing::Combine(
        testing::Values(
            both("resultCode", "\r\nOK\r\n", {u"OK"_qs, {}}),
            both("withEcho", "AT\r\r\nOK\r\n", {u"AT"_qs, u"OK"_qs, {}}),
            // The COM port takes what follows a line for its line feed, whatever it is.
            Shape{"withoutLineFeeds",
                  "OK\rERROR\r",
                  {u"OK"_qs, u"RROR"_qs, {}},
                  {u"OK"_qs, u"ERROR"_qs, {}}},
            both("lineFeedsInsideStay", "+CMGL: 1\r\nen\nto\n\ntre\r\n\r\nOK\r\n",
                 {u"+CMGL: 1"_qs, u"en\nto\n\ntre"_qs, u"OK"_qs}),
            both("emptyLineBefore", "\r\n\r\nOK\r\n", {u"OK"_qs}),
            // Two line feeds are two characters.
            Shape{"manyEmptyLines", "\r\n\r\n\r\n\r\nOK\r\n", {{}, u"OK"_qs}, {u"OK"_qs}},
            both("nulAndHighBytesSurvive", QByteArray("\0\xE5\xFE\0\x80\r", 6),
                 {QString::fromLatin1(QByteArray("\0\xE5\xFE\0\x80", 5))}),
            both("lineFeedCountsAsCharacter", "\nA\r", {u"A"_qs}),
            // A line of one character: the read goes on, and the COM port keeps the character.
            Shape{"oneCharacterBeforeALine", ">\rOK\r", {u">OK"_qs}, {u"OK"_qs}},
            Shape{"oneCharacterAlone", ">\r", {u">"_qs}, {u">"_qs}},
            // What came of a line that never ended.
            Shape{"halfLine", "+CMTI: ", {u"+CMTI: "_qs}, {{}}}),
        testing::Bool()),
    [](const auto &each) {
        return std::string(std::get<0>(each.param).name) +
               (std::get<1>(each.param) ? "OnNetwork" : "OnCom");
    });

class OnBothLines : public testing::TestWithParam<bool>, public ModemBench {
protected:
    OnBothLines() { open(network); }
    const bool network = GetParam();
};
INSTANTIATE_TEST_SUITE_P(Lines, OnBothLines, testing::Bool(),
                         [](const auto &each) { return each.param ? "Network" : "Com"; });

TEST_P(OnBothLines, GivesUpOnAMuteModem)
{
    const milliseconds limit = network ? 1010ms : 2050ms;
    EXPECT_EQ(timed([&] { EXPECT_EQ(link.line.ReadModemLine(), QString()); }), limit);
    EXPECT_EQ(timed([&] { EXPECT_EQ(link.line.ReadModemPrompt(), QString()); }), limit);
    EXPECT_EQ(view.terminal, u"<\r<**\r"_qs);
}

TEST_P(OnBothLines, GoesOnAsSoonAsTheLineIsThere)
{
    clock.after(733ms, [&] { say(network, "\r\nOK\r\n"); });
    EXPECT_EQ(timed([&] { EXPECT_EQ(link.line.ReadModemLine(), u"OK"_qs); }), 733ms);
    clock.after(733ms, [&] { say(network, "\r\n> "); });
    EXPECT_EQ(timed([&] { EXPECT_EQ(link.line.ReadModemPrompt(), u">"_qs); }), 733ms);
}

TEST_P(OnBothLines, WaitsForALineThatComesCharacterByCharacter)
{
    milliseconds at = 100ms;
    for (const char byte : QByteArray("+CMGS: 4\r")) {
        clock.after(at, [this, byte] { say(network, QByteArray(1, byte)); });
        at += 100ms;
    }
    EXPECT_EQ(link.line.ReadModemLine(), u"+CMGS: 4"_qs);
}

TEST_P(OnBothLines, HoldsOnlySoMuchOfALineWithoutAnEnd)
{
    const QByteArray garbage(60'000, 'x');
    for (int i = 0; i < 5; ++i) {
        say(network, garbage);
        EXPECT_LE(link.line.ModemRxBuffer.size(), 65536);
    }
    say(network, "\r\nOK\r\n");
    EXPECT_LE(link.line.ReadModemLine().size(), 65536);
    EXPECT_EQ(link.line.ReadModemLine(), u"OK"_qs);
}

TEST_P(OnBothLines, TellsWhetherATickMayTakeALine)
{
    EXPECT_FALSE(link.line.hasLine());
    say(network, "+CMTI");
    EXPECT_EQ(link.line.hasLine(), !network) << "the network wants the line's end";
    say(network, "\r");
    EXPECT_TRUE(link.line.hasLine());
}

struct Wait {
    int noise;
    QByteArray end;
    bool result;
};

TEST_P(OnBothLines, WaitsForOkThroughAHundredLines)
{
    for (const Wait &wait :
         {Wait{0, "OK\r", true}, Wait{0, "ok\r", true}, Wait{0, "OKAY\r", false},
          Wait{0, "ERROR\r", false}, Wait{100, "OK\r", true}, Wait{101, "OK\r", false}}) {
        say(network, QByteArray("AB\r\n").repeated(wait.noise) + wait.end);
        EXPECT_EQ(link.line.WaitForModemOK(), wait.result) << wait.noise << wait.end.constData();
        link.line.ModemRxBuffer.clear();
        while (port.bytesAvailable() > 0) {
            port.takeCharacter();
        }
    }
}

TEST_P(OnBothLines, ReadsAMuteModemFourTimes)
{
    EXPECT_EQ(timed([&] { EXPECT_FALSE(link.line.WaitForModemOK()); }),
              4 * (network ? 1010ms : 2050ms));
}

TEST_P(OnBothLines, EndsWithTheProgramInTheMiddleOfARead)
{
    clock.after(300ms, [&] { clock.end(); });
    EXPECT_THROW(link.line.ReadModemLine(), ProgramEnds);
}

struct Line : testing::Test, ModemBench {};

TEST_F(Line, LosesWhatStandsFarBehindALineOnTheNetwork)
{
    openNetwork();
    link.line.ModemRxBuffer = u"AB\r"_qs + QString(1000, u'x') + u"lost"_qs;
    EXPECT_EQ(link.line.ReadModemLine(), u"AB"_qs);
    EXPECT_EQ(link.line.ModemRxBuffer, QString(1000, u'x'));
}

TEST_F(Line, LosesWhatStandsFarBehindThePromptOnTheNetwork)
{
    openNetwork();
    link.line.ModemRxBuffer = u"\r\nAT\r\n> "_qs + QString(1000, u'x');
    EXPECT_EQ(link.line.ReadModemPrompt(), u"AT\r\n>"_qs);
    EXPECT_EQ(link.line.ModemRxBuffer, u' ' + QString(999, u'x'));
    link.line.ModemRxBuffer = QString(1000, u'x') + u"lost"_qs;
    EXPECT_EQ(link.line.ReadModemPrompt(), QString());
    EXPECT_EQ(link.line.ModemRxBuffer, QString(1000, u'x'));
}

TEST_F(Line, ThrowsAwayWhatComesBeforeThePromptOnComAndNothingBehindIt)
{
    openCom();
    port.feed("\r\nnoise > +CMGS: 1\r\n");
    EXPECT_EQ(link.line.ReadModemPrompt(), u">"_qs);
    EXPECT_EQ(link.line.ReadModemLine(), u" +CMGS: 1"_qs);
}

TEST_F(Line, CutsTheTerminalBehindSixHundredCharacters)
{
    openCom();
    link.line.SendData(QString(595, u'x') + u'\r'); // with the mark and the line end 600
    EXPECT_EQ(view.terminal, u"==>"_qs + QString(595, u'x') + u"\r\n"_qs);
    link.line.clearTerminal();
    link.line.SendData(QString(596, u'x') + u'\r');
    EXPECT_EQ(view.terminal, u"=>"_qs + QString(596, u'x') + u"\r\n"_qs);
}

TEST_F(Line, ShowsWhatASocketThatIsStillConnectingSwallows)
{
    socket.silent = true;
    module.ActiveComPort = 255;
    socket.connectTo(u"modem"_qs, 23);
    link.line.SendData(u"AT\r"_qs);
    EXPECT_EQ(socket.written, QByteArray());
    EXPECT_EQ(view.terminal, u"==>AT\r\n"_qs);
}

TEST_F(Line, FailsOnAComPortThatIsClosedAndShowsNothing)
{
    module.ActiveComPort = 1;
    EXPECT_THROW(link.line.SendData(u"AT\r"_qs), RuntimeFailure);
    EXPECT_EQ(view.terminal, QString());
}

TEST_F(Line, AnswersATerminalServerWithoutTellingTheModemSide)
{
    openNetwork();
    const QByteArray willEcho = QByteArray::fromHex("FFFB01");
    socket.feed("\r\nO" + willEcho + "K\r\n");
    EXPECT_EQ(link.line.ReadModemLine(), u"OK"_qs);
    EXPECT_EQ(socket.written, QByteArray::fromHex("FFFE01"));
    EXPECT_EQ(view.terminal, u"<OK\r"_qs);
    link.line.SendData(QString(QChar(255)));
    EXPECT_TRUE(socket.written.endsWith(QByteArray::fromHex("FFFF")));
}

} // namespace
