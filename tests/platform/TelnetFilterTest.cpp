#include "platform/TelnetFilter.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    const char *name;
    QByteArray received;
    QByteArray data;
    QByteArray answer;
};

QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

const Case kBytes[] = {
    {"plainText", "\r\nOK\r\n", "\r\nOK\r\n", {}},
    {"nulAndHighBytesAreTheModems", hex("00800D0AFE"), hex("00800D0AFE"), {}},
    {"willIsRefused", "O" + hex("FFFB01") + "K", "OK", hex("FFFE01")},
    {"doIsRefused", "O" + hex("FFFD18") + "K", "OK", hex("FFFC18")},
    {"wontAndDontGetNoAnswer", hex("FFFC01FFFE03") + "OK", "OK", {}},
    {"optionThatIsItself255", hex("FFFDFF") + "OK", "OK", hex("FFFCFF")},
    {"doubled255IsData", "a" + hex("FFFF") + "b", "a" + hex("FF") + "b", {}},
    {"commandsOfTwoBytes", "a" + hex("FFF1FFF9FFF2") + "b", "ab", {}},
    {"subnegotiation", "a" + hex("FFFA1801FFF0") + "b", "ab", {}},
    {"subnegotiationWithDoubled255", "a" + hex("FFFA18FFFFF0FFF0") + "b", "ab", {}},
    {"subnegotiationEndWithoutStart", "a" + hex("FFF0") + "b", "ab", {}},
    {"aServersGreeting", hex("FFFB01FFFB03FFFD00FFFD2C") + "\r\nOK\r\n", "\r\nOK\r\n",
     hex("FFFE01FFFE03FFFC00FFFC2C")}};

TEST(Received, LosesNoByteOfTheModemHoweverItIsSplit)
{
    for (const Case &expected : kBytes) {
        SCOPED_TRACE(expected.name);
        for (qsizetype first = 0; first <= expected.received.size(); ++first) {
            for (qsizetype second = first; second <= expected.received.size(); ++second) {
                TelnetFilter filter;
                QByteArray data;
                QByteArray answer;
                for (const QByteArray &part :
                     {expected.received.left(first), expected.received.mid(first, second - first),
                      expected.received.mid(second)}) {
                    const auto result = filter.receive(part);
                    data += result.data;
                    answer += result.answer;
                }
                ASSERT_EQ(data, expected.data) << first << ", " << second;
                ASSERT_EQ(answer, expected.answer) << first << ", " << second;
            }
        }
    }
}

TEST(TelnetFilter, HearsTheModemAgainAfterASubnegotiationThatNeverEnds)
{
    TelnetFilter filter;
    QByteArray data = filter.receive(hex("FFFA") + QByteArray(100'000, 'x')).data;
    EXPECT_GT(data.size(), 90'000);
    EXPECT_TRUE(filter.receive("\r\nOK\r\n").data.endsWith("OK\r\n"));
}

TEST(TelnetFilter, StopsAnsweringAServerThatDoesNotListen)
{
    TelnetFilter filter;
    const QByteArray question = hex("FFFB01");
    EXPECT_EQ(filter.receive(question.repeated(1'000'000)).answer.size(), 3 * 1000);
    EXPECT_EQ(filter.receive(question + "OK").data, "OK");
}

TEST(TelnetFilter, DoublesWhatWouldBeACommandOnTheWayOut)
{
    EXPECT_EQ(TelnetFilter::escaped("a" + hex("FFFE") + "b" + hex("FF")),
              "a" + hex("FFFFFE") + "b" + hex("FFFF"));
}

} // namespace
