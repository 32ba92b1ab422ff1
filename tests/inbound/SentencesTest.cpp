#include "inbound/InboundWorld.h"
#include "support/Corpus.h"

#include <gmock/gmock.h>

namespace {

using Rows = std::vector<std::string>;

Rows toRows(const QStringList &texts)
{
    Rows rows;
    for (const QString &text : texts) {
        rows.push_back(text.toStdString());
    }
    return rows;
}

struct SentenceWorld : InboundWorld {
    void startsWith(const CorpusSentence &sentence)
    {
        empty();
        module.CountryCode = sentence.country;
        host.format = sentence.dates;
        database.look().transaction([&] {
            for (const auto &[table, rows] : sentence.before.asKeyValueRange()) {
                database.look().run(u"DELETE FROM "_qs + table);
                for (const QString &row : rows) {
                    add(table, row.split(u'|'));
                }
            }
        });
        recordsets.OpenRecordsets();
    }
    void add(const QString &table, const QStringList &values)
    {
        const QStringList columns = corpusColumns()[table].split(u',');
        database.add(table, columns.mid(0, values.size()).join(u','),
                     QVariantList(values.begin(), values.end()));
    }

    Rows table(const QString &name)
    {
        const QStringList columns = corpusColumns()[name].split(u',');
        return rows(u"SELECT [%1] FROM %2 ORDER BY rowid"_qs.arg(columns.join(u"],["_qs), name));
    }
    std::map<QString, Rows> tables()
    {
        std::map<QString, Rows> result;
        for (const QString &name : corpusColumns().keys()) {
            result[name] = table(name);
        }
        return result;
    }

    void happens(const CorpusSentence &sentence)
    {
        if (!sentence.refuses.isEmpty()) {
            database.look().run(u"CREATE TRIGGER refusal BEFORE %1 BEGIN SELECT RAISE(ABORT, "
                                "'disk full'); END"_qs.arg(sentence.refuses));
        }
        QByteArrayList deletions;
        for (const QByteArray &record : sentence.records) {
            store[corpusIndex(record)] = record;
            lists();
            deletions += "AT+CMGD=" + QByteArray::number(corpusIndex(record));
        }
        database.look().run(u"DROP TRIGGER IF EXISTS refusal"_qs);
        EXPECT_EQ(commands, deletions) << "each record is deleted, once";
        EXPECT_EQ(view.panels[2], u"Klar for innkommende SMS"_qs);
    }
};

const QString kFiled = QStringLiteral("SMS_Received");

void check(SentenceWorld &world, const CorpusSentence &sentence)
{
    world.startsWith(sentence);
    auto expected = world.tables();
    for (const auto &[table, rows] : sentence.after.asKeyValueRange()) {
        expected[table] = toRows(rows);
    }
    const Rows filedBefore = world.filed();
    world.happens(sentence);
    const Rows filed = world.filed();
    EXPECT_EQ(world.module.RefreshPending, filed != filedBefore);
    if (sentence.messages > 0 && !sentence.after.contains(kFiled)) {
        EXPECT_EQ(filed.size(), filedBefore.size() + static_cast<std::size_t>(sentence.messages));
        EXPECT_THAT(filed.back(), testing::StartsWith(sentence.from.toStdString() + '|'));
        expected[kFiled] = filed;
    }
    EXPECT_EQ(world.tables(), expected);
}

class Sentences : public testing::TestWithParam<const char *> {};

TEST_P(Sentences, LeaveTheTablesAsTheirLinesSay)
{
    const std::vector<CorpusSentence> all = corpusSentences(QString::fromLatin1(GetParam()));
    EXPECT_GE(all.size(), 40U);
    const std::string wanted = qEnvironmentVariable("LUKORA_SENTENCE").toStdString();
    int checked = 0;
    SentenceWorld world;
    for (const CorpusSentence &sentence : all) {
        if (sentence.name.find(wanted) != std::string::npos) {
            SCOPED_TRACE(sentence.name);
            check(world, sentence);
            ++checked;
        }
    }
    EXPECT_GT(checked, 0) << "no name holds " << wanted;
}

INSTANTIATE_TEST_SUITE_P(Corpus, Sentences,
                         testing::Values("norwegian", "danish", "swedish", "odd"),
                         [](const auto &file) { return std::string(file.param); });

TEST(SentenceFiles, AreAllRun)
{
    EXPECT_THAT(corpusSentenceFiles(), testing::UnorderedElementsAre(u"norwegian"_qs, u"danish"_qs,
                                                                     u"swedish"_qs, u"odd"_qs));
}

} // namespace
