#include "support/Corpus.h"
#include "support/ReaderBench.h"
#include "transcripts/Transcript.h"

#include <gmock/gmock.h>

namespace {

using Kind = TranscriptStep::Kind;

const QString kFolder = QStringLiteral(LUKORA_TRANSCRIPT_CORPUS);
constexpr milliseconds kLongest = 20min;
constexpr milliseconds kSettling = 5s;

/// One database for all: deriving its key takes longer than most dialogues.
struct Site {
    Site() { database.use(module); }
    void startsWith(const Transcript &transcript)
    {
        static const QMap<QString, QStringList> kAlways = {
            {u"KEYTable"_qs, {u"+4790000001|Hovedport|4"_qs}}, {u"Modem"_qs, {u"0| | |0|?"_qs}}};
        module.DatabaseConnection->transaction([&] {
            for (const QString &table : corpusColumns().keys()) {
                fillCorpusTable(*module.DatabaseConnection, table,
                                transcript.before.value(table, kAlways.value(table)));
            }
        });
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
            link.initialiser.InitModem();
        } else {
            module.ModemReady = true;
            link.watcher.SetUpAgain = [] { return true; }; // has transcripts of its own
            link.TimerCom->setEnabled(true);
            link.pace.restart(3000ms);
        }
        clock.runUntil([this] { return failed_ || (atEnd() && clock.elapsed() >= spoken_); },
                       kLongest);
        clock.run(kSettling);
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
        for (; isKind(Kind::Says) || isKind(Kind::Waits); ++next_) {
            const TranscriptStep &step = transcript_.steps[next_];
            delay += step.time;
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
    bool failed_ = false;
    QByteArray heard_;
};

void check(Site &site, const Transcript &transcript, bool network)
{
    SCOPED_TRACE(transcript.name + (network ? " (TCP)" : " (COM)"));
    site.startsWith(transcript);
    const CorpusTables expected = corpusTables(site.tables(), transcript.after);
    Dialogue dialogue(transcript, network, site);
    dialogue.play();
    EXPECT_EQ(site.tables(), expected);
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

TEST(Transcripts, LeaveTheTablesAsTheySay)
{
    const std::vector<Transcript> all = transcripts(kFolder);
    EXPECT_GE(all.size(), 40U);
    const std::string wanted = qEnvironmentVariable("LUKORA_TRANSCRIPT").toStdString();
    int played = 0;
    Site site;
    for (const Transcript &transcript : all) {
        if (transcript.name.find(wanted) == std::string::npos) {
            continue;
        }
        for (const bool network : {false, true}) {
            if (network ? transcript.onTcp : transcript.onCom) {
                check(site, transcript, network);
                ++played;
            }
        }
    }
    EXPECT_GT(played, 0) << "no name holds " << wanted;
}

} // namespace
