#include "support/Corpus.h"
#include "support/ReaderBench.h"

#include <gmock/gmock.h>

namespace {

using Kind = TranscriptStep::Kind;

constexpr milliseconds kLongest = 20min;
constexpr milliseconds kSettling = 5s;
constexpr milliseconds kBeforeTheNextTick = 2s; ///< behind a message, where the queue stays out

/// One database for all: deriving its key takes longer than most dialogues.
struct Site {
    Site() { database.use(module); }
    void startsWith(const Transcript &transcript)
    {
        static const QMap<QString, QStringList> kAlways = {
            {u"KEYTable"_qs, {u"+4790000001|Hovedport|4"_qs, u"+4790000002||4"_qs}},
            {u"Modem"_qs, {u"0| | |0|?"_qs}}};
        module.DatabaseConnection->run(u"DROP TRIGGER IF EXISTS refusal"_qs);
        module.DatabaseConnection->transaction([&] {
            for (const auto &[table, columns] : corpusColumns().asKeyValueRange()) {
                fillCorpusTable(*module.DatabaseConnection, table, columns,
                                transcript.before.value(table, kAlways.value(table)));
            }
        });
        if (!transcript.refuses.isEmpty()) {
            module.DatabaseConnection->run(u"CREATE TRIGGER refusal BEFORE %1 BEGIN SELECT RAISE("
                                           "ABORT, 'disk full'); END"_qs.arg(transcript.refuses));
        }
    }
    CorpusTables tables() { return corpusTables(*module.DatabaseConnection); }

    TestDatabase database;
    Module1 module; ///< as after the login, on no line
};

/// The program's modem side and interpreter on one line, and the transcript at the far end.
class Dialogue : public ReaderBench {
public:
    Dialogue(const Transcript &transcript, bool network, const Site &site)
        : transcript_(transcript), network_(network)
    {
        module = site.module;
        module.LoginComputer = host.computer;
        module.SmsReportOn = transcript.reports;
        module.CountryCode = transcript.country;
        module.SenderNumber = u"+4798765432"_qs; // of a message before
        host.format = transcript.dates;
        port.onWrite = socket.onWrite = [this](const QByteArray &bytes) { hears(bytes); };
        for (const QString &box : transcript.told) {
            person.answers(box);
        }
    }

    void play()
    {
        recordsets.OpenRecordsets();
        open(network_);
        speaks();
        if (transcript_.init) {
            clock.runUntil([this] { return clock.elapsed() >= spoken_; }, kLongest);
            link.initialiser.InitModem();
        } else {
            module.ModemReady = true;
            link.watcher.SetUpAgain = [this] {
                return !(link.flags.HasForgotten = false);
            }; // has transcripts of its own
            link.TimerCom->setEnabled(true);
            link.pace.restart(3000ms);
        }
        clock.runUntil([this] { return failed_ || (atEnd() && clock.elapsed() >= spoken_); },
                       kLongest);
        clock.run(transcript_.records.isEmpty() ? kSettling : kBeforeTheNextTick);
        if (!failed_ && !atEnd()) {
            ADD_FAILURE() << where() << "this was never written: " << expected().constData();
        }
    }

private:
    bool atEnd() const
    {
        return next_ == transcript_.steps.size() ||
               (next_ + 1 == transcript_.steps.size() && isKind(Kind::Anything));
    }
    bool isKind(Kind kind) const
    {
        return next_ < transcript_.steps.size() && transcript_.steps[next_].kind == kind;
    }
    QByteArray expected() const
    {
        const std::size_t step = next_ + (isKind(Kind::Anything) ? 1 : 0);
        return step < transcript_.steps.size() ? transcript_.steps[step].bytes : QByteArray();
    }
    std::string where() const
    {
        const bool isOver = next_ >= transcript_.steps.size();
        return isOver ? "behind the end: "
                      : "at line " + std::to_string(transcript_.steps[next_].line) + ": ";
    }

    void hears(const QByteArray &bytes)
    {
        for (const char byte : bytes) {
            heard_ += byte;
            if (byte == '\r' || byte == '\x1A') {
                answers(std::exchange(heard_, {}));
            }
        }
    }
    void answers(const QByteArray &written)
    {
        const bool free = isKind(Kind::Anything);
        if (written == expected()) {
            EXPECT_GE(clock.elapsed(), notBefore_) << where() << "too early";
            EXPECT_LE(clock.elapsed(), notBehind_) << where() << "too late";
            next_ += free ? 2 : 1;
            speaks();
        } else if (free || (atEnd() && written == "AT+CMGL=ALL\r")) {
            says("\r\nOK\r\n", 20ms);
        } else if (!std::exchange(failed_, true)) {
            ADD_FAILURE() << where() << "expected \"" << expected().constData() << "\", written \""
                          << written.constData() << '"';
        }
    }
    /// What the modem says from here on, until the program has to write.
    void speaks()
    {
        milliseconds delay = 20ms;
        notBehind_ = milliseconds::max();
        for (; isKind(Kind::Says) || isKind(Kind::Waits) || isKind(Kind::Within); ++next_) {
            const TranscriptStep &step = transcript_.steps[next_];
            if (step.kind == Kind::Within) {
                notBehind_ = clock.elapsed() + delay + step.time;
                continue;
            }
            delay += step.time;
            if (step.kind == Kind::Waits) {
                notBefore_ = clock.elapsed() + delay;
            }
            delay += says(step.bytes, delay);
        }
        spoken_ = clock.elapsed() + delay;
    }
    /// A COM port brings one byte after the other, the network all at once.
    milliseconds says(const QByteArray &bytes, milliseconds delay)
    {
        if (network_) {
            clock.after(delay, [this, bytes] { socket.feed(bytes); });
            return 1ms;
        }
        milliseconds time = 0ms;
        for (const char byte : bytes) {
            clock.after(delay + time++, [this, byte] { port.feed(QByteArray(1, byte)); });
        }
        return time;
    }

    const Transcript &transcript_;
    bool network_;
    std::size_t next_ = 0;
    milliseconds spoken_{0};
    milliseconds notBefore_{0};                    ///< nothing may be written until then
    milliseconds notBehind_ = milliseconds::max(); ///< and the next thing must be by then
    bool failed_ = false;
    QByteArray heard_;
};

void check(Site &site, const Transcript &transcript, bool network)
{
    SCOPED_TRACE(transcript.name + (network ? " (TCP)" : " (COM)"));
    site.startsWith(transcript);
    CorpusTables expected = corpusTables(site.tables(), transcript.after);
    const auto filedBefore = site.tables()["SMS_Received"];
    Dialogue dialogue(transcript, network, site);
    dialogue.play();
    const CorpusTables tables = site.tables();
    const auto &filed = tables.at("SMS_Received");
    EXPECT_TRUE(dialogue.module.RefreshPending || filed == filedBefore);
    if (transcript.filed > 0 && !transcript.after.contains(u"SMS_Received"_qs)) {
        EXPECT_EQ(filed.size(), filedBefore.size() + static_cast<std::size_t>(transcript.filed));
        EXPECT_THAT(filed.back(), testing::StartsWith(transcript.from.toStdString() + '|'));
        expected["SMS_Received"] = filed;
    }
    EXPECT_EQ(tables, expected);
    EXPECT_FALSE(dialogue.link.flags.ReadingMessages);
    EXPECT_FALSE(dialogue.link.flags.WaitingForCmgs);
    const QStringList &shown = dialogue.view.panelHistory;
    qsizetype from = 0;
    for (const QString &text : transcript.showed) {
        const qsizetype found = shown.indexOf(text, from);
        EXPECT_GE(found, 0) << "never shown there: " << text.toStdString() << " among "
                            << shown.join(u" / "_qs).toStdString();
        from = found + 1;
    }
    if (!transcript.ready.isEmpty()) {
        EXPECT_EQ(dialogue.module.ModemReady ? u"yes"_qs : u"no"_qs, transcript.ready);
    }
}

class Corpus : public testing::TestWithParam<const char *> {};

TEST_P(Corpus, LeavesTheTablesAsItSays)
{
    const std::vector<Transcript> all = transcripts(QString::fromLatin1(GetParam()));
    EXPECT_GE(all.size(), 40U);
    const std::string wanted = qEnvironmentVariable("LUKORA_TRANSCRIPT").toStdString();
    Site site;
    for (const Transcript &transcript : all) {
        if (transcript.name.find(wanted) == std::string::npos) {
            continue;
        }
        for (const bool network : {false, true}) {
            if (network ? transcript.onTcp : transcript.onCom) {
                check(site, transcript, network);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Folders, Corpus, testing::Values("sentences", "transcripts"),
                         [](const auto &folder) { return std::string(folder.param); });

} // namespace
