#include "inbound/InboundWorld.h"
#include "support/Corpus.h"

#include <gmock/gmock.h>

namespace {

struct SentenceWorld : InboundWorld {
    void startsWith(const CorpusSentence &sentence)
    {
        empty();
        module.CountryCode = sentence.country;
        host.format = sentence.dates;
        database.look().transaction([&] {
            for (const auto &[table, rows] : sentence.before.asKeyValueRange()) {
                fillCorpusTable(database.look(), table, rows);
            }
        });
        recordsets.OpenRecordsets();
    }
    void happens(const CorpusSentence &sentence)
    {
        if (!sentence.refuses.isEmpty()) {
            database.look().run(u"CREATE TRIGGER refusal BEFORE %1 BEGIN SELECT RAISE(ABORT, "
                                "'disk full'); END"_qs.arg(sentence.refuses));
        }
        QByteArrayList deletions;
        for (const QByteArray &record : sentence.records) {
            const int place = corpusIndex(record);
            store[place] = record;
            lists();
            if (store.contains(place)) {
                lists(); // a header that looks cut counts when it comes again
            }
            deletions += "AT+CMGD=" + QByteArray::number(place);
        }
        database.look().run(u"DROP TRIGGER IF EXISTS refusal"_qs);
        EXPECT_EQ(commands, deletions) << "each record is deleted, once";
        EXPECT_EQ(view.panels[2], u"Klar for innkommende SMS"_qs);
    }
};

void check(SentenceWorld &world, const CorpusSentence &sentence)
{
    world.startsWith(sentence);
    CorpusTables expected = corpusTables(world.database.look());
    const auto filedBefore = expected["SMS_Received"];
    expected = corpusTables(expected, sentence.after);
    world.happens(sentence);
    const CorpusTables tables = corpusTables(world.database.look());
    const auto &filed = tables.at("SMS_Received");
    EXPECT_EQ(world.module.RefreshPending, filed != filedBefore);
    if (sentence.messages > 0 && !sentence.after.contains(u"SMS_Received"_qs)) {
        EXPECT_EQ(filed.size(), filedBefore.size() + static_cast<std::size_t>(sentence.messages));
        EXPECT_THAT(filed.back(), testing::StartsWith(sentence.from.toStdString() + '|'));
        expected["SMS_Received"] = filed;
    }
    EXPECT_EQ(tables, expected);
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
