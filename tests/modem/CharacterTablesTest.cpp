#include "modem/CharacterTables.h"

#include "platform/RuntimeFailure.h"
#include "platform/Text.h"

#include <gtest/gtest.h>

namespace {

struct Built : testing::Test {
    Built() { tables.BuildCharacterTables(); }
    CharacterTables tables;
    int out(QChar character) const { return tables.out(windows1252Code(character)); }
};

TEST_F(Built, CarriesTheLettersOfTheStandard)
{
    // Code, character: 3GPP TS 23.038, 6.2.1, but for 9.
    const std::pair<int, char16_t> kLetters[] = {
        {1, u'£'},   {2, u'$'},   {3, u'¥'},   {4, u'è'},   {5, u'é'},   {6, u'ù'},  {7, u'ì'},
        {8, u'ò'},   {9, u'ç'},   {10, 10},    {11, u'Ø'},  {12, u'ø'},  {14, u'Å'}, {15, u'å'},
        {17, u'_'},  {28, u'Æ'},  {29, u'æ'},  {30, u'ß'},  {31, u'É'},  {36, u'¤'}, {64, u'¡'},
        {91, u'Ä'},  {92, u'Ö'},  {93, u'Ñ'},  {94, u'Ü'},  {95, u'§'},  {96, u'¿'}, {123, u'ä'},
        {124, u'ö'}, {125, u'ñ'}, {126, u'ü'}, {127, u'à'}, {32, u' '},  {35, u'#'}, {37, u'%'},
        {63, u'?'},  {65, u'A'},  {90, u'Z'},  {97, u'a'},  {122, u'z'}, {48, u'0'}, {57, u'9'}};
    for (const auto &[gsm, character] : kLetters) {
        EXPECT_EQ(out(QChar(character)), gsm);
        EXPECT_EQ(tables.in(gsm), windows1252Code(QChar(character))) << gsm;
    }
}

TEST_F(Built, HasNothingElseButTheCarriageReturnAndTheAtSignOnTheWayIn)
{
    int outgoing = 0;
    for (int code = 0; code < 256; ++code) {
        outgoing += tables.out(code) != 0;
    }
    int incoming = 0;
    for (int code = 0; code < 128; ++code) {
        incoming += tables.in(code) != 0;
    }
    EXPECT_EQ(outgoing, 1 + 1 + 4 + 27 + 26 + 26 + 31);
    EXPECT_EQ(incoming, 128 - 11); // 16, and 18 to 27 with the escape code
    for (const char16_t character : u"@[\\]^`{|}~ÇÈ€\u00A0\t") {
        EXPECT_EQ(out(QChar(character)), 0) << static_cast<int>(character);
    }
    EXPECT_EQ(out(u'\r'), 10);
    EXPECT_EQ(tables.in(13), 13);
    EXPECT_EQ(tables.in(0), '@');
    EXPECT_EQ(tables.in(27), 0);
    EXPECT_THROW(tables.out(256), RuntimeFailure);
    EXPECT_THROW(tables.in(128), RuntimeFailure);
    EXPECT_THROW(tables.in(-1), RuntimeFailure);
}

} // namespace
