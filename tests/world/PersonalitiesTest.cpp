#include "simulator/Personalities.h"
#include "app/StatusPanel.h"
#include "support/World.h"

#include <QAction>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Line = World::Line;

const QString kFiled = QStringLiteral("SELECT FraNummer, SMS_Text FROM SMS_Received ORDER BY ID");
const QString kStranger = QStringLiteral("+4793333333");

// CMGS of the message to the door, Status of the user, how often the door's answers are filed, how
// often the door heard the command, and the outbound panel.
constexpr char kGood[] = "17:OK|Aktiv |1|1|SMS 17 SENDT";
constexpr char kDead[] = "|-|0|0|";

struct Outcome {
    const char *during = kGood;
    const char *after = kGood;
    const char *box = nullptr; ///< what comes up, once
    /// The operator chooses the line again; else time alone brings everything to its end.
    bool byHand = false;
};
constexpr Outcome kNotFound{kDead, kGood, "Modem not found!!!", true};

struct Case {
    const char *words; ///< of the personality, as typed at the simulator
    Outcome com{};
    std::optional<Outcome> tcp{}; ///< where it differs
    bool reports = false;         ///< the operator switches them on meanwhile
};

const Case kCases[] = {
    {"mute", kNotFound},
    {"slow"},
    {"split"},
    {"glued"},
    {"blanklines"},
    // A read ends at a carriage return alone. What a COM port brings without one counts when the
    // time is over, so that "OK" is seen, but the manufacturer's line swallows it.
    {"lfonly", kNotFound},
    {"crcrlf"},
    {"echo"},
    {"garbage", kNotFound},
    {"noticefirst"},
    {"noticeinrecord 1"},
    {"noticeinsubmission"},
    {"bareprompt"},
    // The text is sent without it, and waits in the modem.
    {"lateprompt"},
    {"noprompt", {"UNSENT|Ny|0|0|SMS Sending TIMEOUT"}},
    {"noprompt 1"},
    {"refuse 331 2"},
    {"refuse 500", {"UNSENT|Ny|0|0|SMS SENDEFEIL"}},
    {"refuse 0", {"UNSENT|Ny|0|0|SMS SENDEFEIL"}},
    {"lateanswer"},
    // Tried again at once, so the door hears it twice.
    {"lost 1", {"18:OK|Aktiv |2|2|SMS 18 SENDT", "18:OK|Aktiv |2|2|SMS 18 SENDT"}},
    {"drop 1",
     {"UNSENT|Ny|0|0|Sender SMS", kGood, "Forbindelsen med modemet er brutt", true},
     Outcome{"UNSENT|Ny|0|0|SMS Sending TIMEOUT", kGood, nullptr, true}},
    {"reset 1"},
    {"forget 1"},
    {"nomt"},
    {"nosm"},
    // With them asked for there is no modem; the cure is to switch them off.
    {"noreports", kNotFound, {}, true},
    {"full", {"17:OK|Registrerer|0|1|SMS 17 SENDT", kGood, nullptr, true}},
    // No record is read at place 0, and it is deleted all the same.
    {"firstplace 0", {"17:OK|Registrerer|0|1|SMS 17 SENDT", "17:OK|Registrerer|0|1|SMS 17 SENDT"}},
    {"firstplace 255"},
    {"firstplace 256", {"17:OK|Registrerer|0|1|SMS 17 SENDT", kGood, "Tallet er for stort"}},
    // What cannot be deleted comes with each listing, at another place maybe: then it is another.
    {"wrongplace", {kGood, "17:OK|Aktiv |2|1|SMS 17 SENDT"}},
    {"nodelete"},
    {"nodelete 2"},
    {"names"},
    {"recipient", {}, {}, true},
};

/// One world that goes through all of it: what a case leaves behind, the next one meets.
class Play {
public:
    explicit Play(Line line) : world({.line = line}) {}

    void begin(const std::function<void()> &fault)
    {
        ++user_;
        filed_ = world.value(u"SELECT coalesce(max(ID), 0) FROM SMS_Received"_qs);
        world.modem.setNextReference(17);
        world.control<StatusPanel>("sbStatusBar_3").setText({});
        fault();
        world.registerUser(number());
        world.clock.run(2min);
    }
    /// A stranger's message comes, behind what the fault held up.
    void end(const std::function<void()> &cure)
    {
        world.modem.faults() = {};
        world.network.send(kStranger, world.modem.ownNumber(), "Etterpaa");
        cure();
        world.clock.run(4min);
    }
    QString state()
    {
        const QString shortNumber = number().mid(3);
        const QStringList heard = world.received(u"+4790000001"_qs).filter(shortNumber);
        return QStringList{
            world.value(
                u"SELECT CMGS FROM SMS_Sent WHERE SMS_Text LIKE '%%1%'"_qs.arg(shortNumber)),
            world.status(number()), filedFrom(u"+4790000001"_qs), QString::number(heard.size()),
            world.panel(3)}
            .join(u'|');
    }
    QString filedFrom(const QString &sender)
    {
        return world.value(
            u"SELECT count(*) FROM SMS_Received WHERE ID > %1 AND FraNummer = '%2'"_qs.arg(filed_,
                                                                                           sender));
    }
    void expect(const char *expected, const char *when)
    {
        EXPECT_EQ(state().toStdString(), expected) << when;
    }
    /// Nothing that happened is lost, and nothing waits.
    void expectRecovered(const char *after)
    {
        expect(after, "after");
        EXPECT_EQ(world.panel(2), u"Klar for innkommende SMS");
        EXPECT_EQ(filedFrom(kStranger), u"1");
        EXPECT_TRUE(world.modem.store().records().empty());
        EXPECT_TRUE(world.application().module().ModemReady);
    }

    World world;

private:
    QString number() const { return u"+4791%1"_qs.arg(user_, 6, 10, QLatin1Char('0')); }

    int user_ = 0;
    QString filed_;
};

void play(Play &play, const Case &each, Line line)
{
    World &world = play.world;
    const Outcome outcome = line == Line::Tcp ? each.tcp.value_or(each.com) : each.com;
    const QStringList boxes =
        outcome.box ? QStringList{QString::fromUtf8(outcome.box)} : QStringList();
    const auto switchReports = [&](const char *entry) { world.control<QAction>(entry).trigger(); };
    play.begin([&] {
        addPersonality(world.modem.faults(), QString::fromUtf8(each.words));
        if (!each.reports) {
            world.chooseLineAgain(boxes);
            return;
        }
        for (const QString &box : boxes) {
            world.person.answers(box);
        }
        switchReports("mnuSMSSendingsbekreftelsePå");
    });
    play.expect(outcome.during, "during");
    play.end([&] {
        world.port.plugIn();
        if (each.reports) {
            switchReports("mnuSMSSendingsbekreftelseAv");
        } else if (outcome.byHand) {
            world.chooseLineAgain();
        }
    });
    play.expectRecovered(outcome.after);
}

class OnLine : public testing::TestWithParam<Line> {};
INSTANTIATE_TEST_SUITE_P(Lines, OnLine, testing::Values(Line::Com, Line::Tcp),
                         [](const auto &line) { return line.param == Line::Com ? "Com" : "Tcp"; });

struct Fate {
    const char *name;
    Line line;
    void (*strike)(World &);
    const char *said; ///< in the status box of the network modem
    const char *during;
};

const Fate kFates[] = {
    {"USB lost", Line::Com,
     [](World &world) {
         world.person.answers(u"The port is gone"_qs);
         world.port.unplug();
         world.modem.lineClosed();
     },
     "", "UNSENT|Ny|0|0|Sender SMS"},
    // The modem counts as there until the operator does something about it.
    {"closed by the far side", Line::Tcp, [](World &world) { world.socket.closeByFarSide(); },
     "Frakoblet fra modem", "UNSENT|Ny|0|0|SMS Sending TIMEOUT"},
    {"reset", Line::Tcp, [](World &world) { world.socket.fail(10054, u"Brutt"_qs); },
     "Feil No. 10054 Brutt", "UNSENT|Ny|0|0|SMS Sending TIMEOUT"},
    {"half open", Line::Tcp, [](World &world) { world.socket.onWrite = {}; }, "",
     "UNSENT|Ny|0|0|SMS Sending TIMEOUT"},
    {"refused", Line::Tcp,
     [](World &world) {
         world.socket.answers = false;
         world.chooseLineAgain();
     },
     "Feil No. 10061 Connection refused", kDead},
};

} // namespace

TEST(Personalities, AllHaveACase)
{
    for (const Personality &each : kPersonalities) {
        EXPECT_TRUE(std::ranges::any_of(kCases, [&](const Case &a) {
            return QString::fromUtf8(a.words).section(u' ', 0, 0) == each.name;
        })) << each.name.toString().toStdString();
    }
}

TEST_P(OnLine, LivesThroughEveryPersonality)
{
    std::optional<Play> world;
    for (const Case &each : kCases) {
        SCOPED_TRACE(each.words);
        if (!world || HasFailure()) {
            world.emplace(GetParam());
        }
        play(*world, each, GetParam());
    }
}

TEST_P(OnLine, LivesThroughEveryFate)
{
    for (const Fate &fate : kFates) {
        if (fate.line != GetParam()) {
            continue;
        }
        SCOPED_TRACE(fate.name);
        Play play(GetParam());
        World &world = play.world;
        play.begin([&] { fate.strike(world); });
        play.expect(fate.during, "during");
        if (GetParam() == Line::Tcp) {
            EXPECT_TRUE(world.control<QPlainTextEdit>("txtMessages")
                            .toPlainText()
                            .contains(QString::fromUtf8(fate.said)));
        }
        play.end([&] {
            world.port.plugIn();
            world.socket.answers = true;
            world.socket.onWrite = [&](const QByteArray &bytes) { world.modem.receive(bytes); };
            world.chooseLineAgain();
        });
        play.expectRecovered(kGood);
    }
}

// NUL, high bytes, an index out of range, a header that is none, half a line; and one without end.
TEST_P(OnLine, LivesThroughGarbage)
{
    constexpr char kGarbage[] = "\0\xff\r\n+CMGL: 999,\r\n+CMTI\r\n+CMGL: 3\r\r\n'\"";
    Play play(GetParam());
    play.begin([&] {
        play.world.person.answers(u"Tallet er for stort"_qs);
        for (const QByteArray &garbage : {QByteArray(kGarbage, sizeof kGarbage - 1),
                                          QByteArray(10'000'000, 'x'), QByteArray("\r\n")}) {
            play.world.modem.inject(garbage);
            play.world.clock.run(30s);
        }
    });
    play.expect(kGood, "during");
    play.end([] {});
    play.expectRecovered(kGood);
}

TEST_P(OnLine, WaitsForALineThatTakesLongerThanARead)
{
    World world({.line = GetParam()});
    addPersonality(world.modem.faults(), u"slow 20"_qs);
    const QByteArray body = "Her er en lang tekst. " + QByteArray(138, 'x');
    world.network.send(kStranger, world.modem.ownNumber(), body);
    world.clock.run(1min);
    EXPECT_EQ(world.value(u"SELECT group_concat(SMS_Text) FROM SMS_Received"_qs),
              QString::fromLatin1(body));
    EXPECT_TRUE(world.modem.store().records().empty());
}

// More than a read on the network keeps behind a line, and the listing comes in one piece.
TEST_P(OnLine, FilesEachMessageOfALongListingOnce)
{
    World world({.line = GetParam()});
    QStringList expected;
    for (int i = 0; i < 20; ++i) {
        const QString text = QString::number(i).rightJustified(155, u'x');
        world.network.send(kStranger, world.modem.ownNumber(), text.toLatin1());
        expected.append(kStranger + u'|' + text);
    }
    world.clock.run(5min);
    EXPECT_EQ(world.rows(kFiled).join(u'\n').toStdString(), expected.join(u'\n').toStdString());
}
