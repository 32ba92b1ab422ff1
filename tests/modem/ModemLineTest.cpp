#include "ModemWorld.h"

#include "platform/RuntimeFailure.h"

#include <gtest/gtest.h>

namespace {

TEST(ModemLine, IsReadLineByLine)
{
    const struct {
        QByteArray said;
        QStringList onCom;
        QStringList onNetwork = {}; ///< the same where nothing stands
    } kShapes[] = {
        {"\r\nOK\r\n", {u"OK"_qs, {}}},
        {"AT\r\r\nOK\r\n", {u"AT"_qs, u"OK"_qs, {}}},
        // The COM port takes what follows a line for its line feed, whatever it is.
        {"OK\rERROR\r", {u"OK"_qs, u"RROR"_qs, {}}, {u"OK"_qs, u"ERROR"_qs, {}}},
        {"+CMGL: 1\r\nen\nto\n\ntre\r\n\r\nOK\r\n",
         {u"+CMGL: 1"_qs, u"en\nto\n\ntre"_qs, u"OK"_qs}},
        {"\r\n\r\nOK\r\n", {u"OK"_qs}},
        // Two line feeds are two characters.
        {"\r\n\r\n\r\n\r\nOK\r\n", {{}, u"OK"_qs}, {u"OK"_qs}},
        {QByteArray("\0\xE5\xFE\0\x80\r", 6), {QString::fromLatin1("\0\xE5\xFE\0\x80", 5)}},
        {"\nA\r", {u"A"_qs}},
        // A line of one character: the read goes on, and the COM port keeps the character.
        {">\rOK\r", {u">OK"_qs}, {u"OK"_qs}},
        {">\r", {u">"_qs}},
        // What came of a line that never ended.
        {"+CMTI: ", {u"+CMTI: "_qs}, {{}}}};
    for (const bool network : {false, true}) {
        for (const auto &shape : kShapes) {
            SCOPED_TRACE(shape.said.toPercentEncoding().constData());
            ModemBench world;
            world.open(network);
            world.say(network, shape.said);
            const bool differs = network && !shape.onNetwork.isEmpty();
            for (const QString &expected : differs ? shape.onNetwork : shape.onCom) {
                EXPECT_EQ(world.link.line.ReadModemLine(), expected);
            }
        }
    }
}

class OnBothLines : public testing::TestWithParam<bool>, public ModemBench {
protected:
    OnBothLines() { open(network); }
    const bool network = GetParam();
};
INSTANTIATE_TEST_SUITE_P(Lines, OnBothLines, testing::Bool(),
                         [](const auto &each) { return each.param ? "Network" : "Com"; });

TEST_P(OnBothLines, GivesUpALineThatIsLongerThanItsBuffer)
{
    say(network, QByteArray(100'000, 'x') + "\r\nOK\r\n");
    EXPECT_LE(link.line.ReadModemLine().size(), 65536);
    EXPECT_EQ(link.line.ReadModemLine(), u"OK"_qs);
}

TEST_P(OnBothLines, WaitsForOkThroughAHundredLines)
{
    for (const auto &[noise, end, result] : {std::tuple{0, "ok\r", true},
                                             {0, "OKAY\r", false},
                                             {0, "ERROR\r", false},
                                             {100, "OK\r", true},
                                             {101, "OK\r", false}}) {
        say(network, QByteArray("AB\r\n").repeated(noise) + end);
        EXPECT_EQ(link.line.WaitForModemOK(), result) << noise << end;
        link.line.ModemRxBuffer.clear();
        while (port.bytesAvailable() > 0) {
            port.takeCharacter();
        }
    }
}

struct Line : testing::Test, ModemBench {};

TEST_F(Line, KeepsTheNewestOfWhatNobodyReads)
{
    open(true);
    QByteArrayList lines;
    for (int i = 100; i < 300; ++i) {
        lines += QByteArray::number(i) + QByteArray(1021, 'x') + "\r\n";
    }
    for (const QByteArrayList &pieces : {lines, {lines.join()}}) {
        for (const QByteArray &piece : pieces) {
            say(true, piece);
        }
        EXPECT_TRUE(link.line.ReadModemLine().endsWith(u'x'));
        for (int i = 237; i < 300; ++i) { // 64 KiB are 63 of 1026 and the end of one more
            EXPECT_EQ(link.line.ReadModemLine().left(3).toInt(), i);
        }
        EXPECT_EQ(link.line.ReadModemLine(), QString());
    }
}

TEST_F(Line, LosesNothingBehindALineOnTheNetworkAndMuchBehindThePrompt)
{
    open(true);
    const QByteArray longLine(3000, 'x');
    say(true, "AB\r\n" + longLine + "\r\nOK\r\n");
    for (const QByteArray &line : {QByteArray("AB"), longLine, QByteArray("OK")}) {
        EXPECT_EQ(link.line.ReadModemLine().toLatin1(), line);
    }
    const QString thousand(1000, u'x');
    say(true, "\r\nAT\r\n> " + longLine);
    EXPECT_EQ(link.line.ReadModemPrompt(), u"AT\r\n>"_qs);
    EXPECT_EQ(link.line.ModemRxBuffer, u' ' + thousand.left(999));
    say(true, longLine);
    EXPECT_EQ(link.line.ReadModemPrompt(), QString());
    EXPECT_EQ(link.line.ModemRxBuffer, u' ' + thousand.left(999));
}

TEST_F(Line, ThrowsAwayWhatComesBeforeThePromptOnComAndNothingBehindIt)
{
    open(false);
    port.feed("\r\nnoise > +CMGS: 1\r\n");
    EXPECT_EQ(link.line.ReadModemPrompt(), u">"_qs);
    EXPECT_EQ(link.line.ReadModemLine(), u" +CMGS: 1"_qs);
}

TEST_F(Line, CutsTheTerminalBehindSixHundredCharacters)
{
    open(false);
    link.line.SendData(QString(595, u'x') + u'\r'); // with the mark and the line end 600
    EXPECT_EQ(view.terminal, u"==>"_qs + QString(595, u'x') + u"\r\n"_qs);
    link.line.clearTerminal();
    link.line.SendData(QString(596, u'x') + u'\r');
    EXPECT_EQ(view.terminal, u"=>"_qs + QString(596, u'x') + u"\r\n"_qs);
}

TEST_F(Line, SwallowsOnAConnectingSocketAndFailsOnAClosedComPort)
{
    module.ActiveComPort = 1;
    EXPECT_THROW(link.line.SendData(u"AT\r"_qs), RuntimeFailure);
    EXPECT_EQ(view.terminal, QString());
    socket.silent = true;
    open(true);
    link.line.SendData(u"AT\r"_qs);
    EXPECT_EQ(socket.written, QByteArray());
    EXPECT_EQ(view.terminal, u"==>AT\r\n"_qs);
}

} // namespace
