#include "data/DataTest.h"

namespace {

using EngineFunctionsTest = DataTest;

TEST_F(EngineFunctionsTest, SortKeysOrderAsTheColumnItself)
{
    const QString alike(98, u'x');
    QVariantList values = {{}, 0, -1, 1, QByteArray("a"), QByteArray("\xFF\x01"), QByteArray()};
    for (const double number :
         {-0.0, 0.5, -0.5, 1.5, 1e300, -1e300, 9007199254740992.0, 9007199254740994.0,
          -9007199254740992.0, 9223372036854775808.0, -9223372036854775808.0}) {
        values += number;
    }
    for (const qlonglong number :
         {9007199254740993LL, -9007199254740993LL, LLONG_MAX, LLONG_MAX - 1, LLONG_MAX - 700,
          LLONG_MAX - 800, LLONG_MIN, LLONG_MIN + 1}) {
        values += number;
    }
    const QString texts =
        u"|  | a|a|A  |a b|ab|a\tb|a\u0001|_|@|Z|z|zz|Æ|æ|ä|Ø|ö|Ö|Å|å|aå|ÅA|é|É|ÿ|ß|"
        "\u00FF|\u0100|\u0101|\u07FA|\u0800|Ж|ж|漢|\uFFFD|😀|\U0010FFFF|10|9|+47|"
        "O'Neil"_qs;
    for (const QString &text :
         texts.split(u'|') + QStringList{alike + u'a', alike + u'B', alike, alike + u"  "_qs}) {
        values += text;
    }
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
    const QString hundred(100, u'Å');
    EXPECT_EQ(database.rows(
                  u"SELECT sortkey('%1a') = sortkey('%1b'), sortkey('%1') = sortkey('%2')"_qs.arg(
                      hundred, hundred.chopped(1))),
              QStringList{u"1|0"_qs});
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
          {u"'Šimić Žan Œ'"_qs, u"šimić žan œ"_qs, true},
          {u"'ſ'"_qs, u"ƀ"_qs, false},
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
