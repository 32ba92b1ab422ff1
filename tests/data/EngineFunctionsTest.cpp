#include "data/DataTest.h"

namespace {

using EngineFunctionsTest = DataTest;

TEST_F(EngineFunctionsTest, SortKeysOrderAsTheColumnItself)
{
    const QString alike(98, u'x');
    const QVariantList values = {{},
                                 0,
                                 -0.0,
                                 0.5,
                                 -0.5,
                                 -1,
                                 1,
                                 1.5,
                                 1e300,
                                 -1e300,
                                 9007199254740993LL,
                                 9007199254740992.0,
                                 9007199254740994.0,
                                 -9007199254740993LL,
                                 -9007199254740992.0,
                                 LLONG_MAX,
                                 LLONG_MAX - 1,
                                 9223372036854775808.0,
                                 LLONG_MIN,
                                 LLONG_MIN + 1,
                                 -9223372036854775808.0,
                                 QByteArray("a"),
                                 QByteArray("\xFF\x01"),
                                 QByteArray(),
                                 u""_qs,
                                 u"  "_qs,
                                 u" a"_qs,
                                 u"a"_qs,
                                 u"A  "_qs,
                                 u"a b"_qs,
                                 u"ab"_qs,
                                 u"a\tb"_qs,
                                 u"a\u0001"_qs,
                                 u"_"_qs,
                                 u"@"_qs,
                                 u"Z"_qs,
                                 u"z"_qs,
                                 u"zz"_qs,
                                 u"Æ"_qs,
                                 u"æ"_qs,
                                 u"ä"_qs,
                                 u"Ø"_qs,
                                 u"ö"_qs,
                                 u"Ö"_qs,
                                 u"Å"_qs,
                                 u"å"_qs,
                                 u"aå"_qs,
                                 u"ÅA"_qs,
                                 u"é"_qs,
                                 u"É"_qs,
                                 u"ÿ"_qs,
                                 u"ß"_qs,
                                 u"\u00FF"_qs,
                                 u"\u0100"_qs,
                                 u"\u0101"_qs,
                                 u"\u07FA"_qs,
                                 u"\u0800"_qs,
                                 u"Ж"_qs,
                                 u"ж"_qs,
                                 u"漢"_qs,
                                 u"\uFFFD"_qs,
                                 u"😀"_qs,
                                 u"\U0010FFFF"_qs,
                                 u"10"_qs,
                                 u"9"_qs,
                                 u"+47"_qs,
                                 u"O'Neil"_qs,
                                 alike + u'a',
                                 alike + u'B',
                                 alike,
                                 alike + u"  "_qs};
    run(u"CREATE TABLE nasty (v)"_qs);
    for (const QVariant &value : values) {
        database.add(u"nasty"_qs, u"v"_qs, {value});
    }
    for (const char *const broken : {"C3", "E6", "C3A5C3", "F7BFBFBF", "FFFFFFFF", "80", "F09F"}) {
        database.look().run(
            u"INSERT INTO nasty VALUES (CAST(X'%1' AS TEXT))"_qs.arg(QString::fromUtf8(broken)));
    }
    for (const QString &way : {u"ASC"_qs, u"DESC"_qs}) {
        const QString sorted = u"SELECT rowid FROM nasty ORDER BY %1 %2, rowid"_qs;
        const QStringList byKey = database.rows(sorted.arg(u"sortkey(v)"_qs, way));
        EXPECT_EQ(byKey.size(), values.size() + 7);
        EXPECT_EQ(byKey, database.rows(sorted.arg(u"v COLLATE NOCASE"_qs, way)));
    }
}

TEST_F(EngineFunctionsTest, SortKeysOfLongTextsCountOneHundredCharacters)
{
    const QString hundred(100, u'Å');
    const auto differ = [&](const QString &a, const QString &b) {
        return database.single(u"SELECT sortkey(?) <> sortkey(?)"_qs, {a, b});
    };
    EXPECT_EQ(differ(hundred + u'a', hundred + u'b'), u"0");
    EXPECT_EQ(differ(hundred, hundred.chopped(1)), u"1");
}

TEST_F(EngineFunctionsTest, ContainsTextFindsWithoutRegardToCase)
{
    for (const auto &[values, needle, found] :
         {std::tuple(u"'Hansen', 'Ås'"_qs, u"HANS"_qs, true),
          {u"'Hansen', 'Ås'"_qs, u"ås"_qs, true},
          {u"'Hansen', 'Ås'"_qs, u"n å"_qs, false},
          {u"'BLÅBÆRSØYA ÄÖÉÞ'"_qs, u"blåbærsøya äöéþ"_qs, true},
          {u"'blåbærsøya'"_qs, u"ÅBÆRSØ"_qs, true},
          {u"'ananas'"_qs, u"NAS"_qs, true},
          {u"'anana'"_qs, u"nas"_qs, false},
          {u"'nas'"_qs, u"nase"_qs, false},
          {u"'×ß'"_qs, u"÷"_qs, false},
          {u"'à'"_qs, u"Ð"_qs, false},
          {u"'ЀА'"_qs, u"а"_qs, false}, // capitals beyond Latin-1 stay as they are
          {u"'@['"_qs, u"`"_qs, false},
          {u"'100 %_'"_qs, u"%_"_qs, true},
          {u"NULL, 1234, 0.5"_qs, u"23"_qs, true},
          {u"NULL, 1234, 0.5"_qs, u"0.5"_qs, true},
          {u"NULL, -12"_qs, u"null"_qs, false},
          {u"NULL"_qs, u""_qs, true},
          {u"'', 'a '"_qs, u"a "_qs, true},
          {u"'a'"_qs, u"a "_qs, false}}) {
        EXPECT_EQ(database.single(u"SELECT contains_text(?, %1)"_qs.arg(values), {needle}),
                  found ? u"1" : u"0")
            << values.toStdString() << " holds " << needle.toStdString();
    }
    EXPECT_EQ(database.single(u"SELECT contains_text(NULL, 'a') + contains_text() +"
                              " contains_text('a')"_qs),
              u"2");
}

} // namespace
