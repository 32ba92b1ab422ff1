#include "ModemWorld.h"
#include "simulator/TelnetFilter.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    const char *name;
    QByteArray sent;
    QByteArray data;
    QByteArray answers;
};

void PrintTo(const Case &test, std::ostream *out)
{
    *out << test.name;
}

class Telnet : public testing::TestWithParam<Case> {};

TEST_P(Telnet, KeepsItsCommandsFromTheModem)
{
    const Case &test = GetParam();
    TelnetFilter whole;
    EXPECT_EQ(whole.take(test.sent), test.data);
    EXPECT_EQ(whole.takeAnswers(), test.answers);

    TelnetFilter pieces;
    QByteArray data;
    for (const char byte : test.sent) {
        data += pieces.take(QByteArray(1, byte));
    }
    EXPECT_EQ(data, test.data);
    EXPECT_EQ(pieces.takeAnswers(), test.answers);
}

INSTANTIATE_TEST_SUITE_P(
    Streams, Telnet,
    testing::Values(Case{"plain", "AT\r", "AT\r", ""},
                    Case{"asksForAnOption", "A\xff\xfd\x01T", "AT", "\xff\xfc\x01"},
                    Case{"offersAnOption", "A\xff\xfb\x03T", "AT", "\xff\xfe\x03"},
                    Case{"refusalsAreNotAnswered", "\xff\xfc\x01\xff\xfe\x03X", "X", ""},
                    Case{"optionThatLooksLikeACommand",
                         "\xff\xfd\xff"
                         "A",
                         "A", "\xff\xfc\xff"},
                    Case{"doubledByteIsData", "A\xff\xffT", "A\xffT", ""},
                    Case{"parameters", "A\xff\xfa\x18\x01xy\xff\xff\xff\xf0T", "AT", ""},
                    Case{"commandWithoutOption", "A\xff\xf1T", "AT", ""},
                    Case{"cutOff", "A\xff\xfa\x18", "A", ""}),
    [](const auto &param) { return param.param.name; });

TEST(Telnet, DoublesTheDataByteOnTheWayOut)
{
    EXPECT_EQ(TelnetFilter::escaped("a\xff"
                                    "b"),
              QByteArray("a\xff\xff"
                         "b"));
}

} // namespace
