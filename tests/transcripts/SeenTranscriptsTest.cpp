// What real modems were seen to say, a collection that stands beside the checkout: the program
// survives all of it, wherever it comes.

#include "data/Module1.h"
#include "support/World.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <gmock/gmock.h>

namespace {

using Line = World::Line;

struct Seen {
    std::string name; ///< place in the collection, and kind
    QByteArray bytes;
};

std::vector<Seen> seen()
{
    QFile file(QStringLiteral(LUKORA_TRANSCRIPTS));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    std::vector<Seen> result;
    for (const QJsonValue &one : QJsonDocument::fromJson(file.readAll()).array()) {
        QString text = one[u"text"].toString();
        if (one[u"eol"].toString().startsWith(u"LF")) {
            text.replace(u'\n', u"\r\n"_qs); // of the line, as the collection says
        }
        result.push_back(
            {std::to_string(result.size()) + ' ' + one[u"kind"].toString().toStdString(),
             text.toLatin1()});
    }
    return result;
}

/// Headers with the records behind them, and what stands before the first one.
QByteArrayList recordsOf(const QByteArray &listing)
{
    static const QRegularExpression kStart(u"(?=^\\+CMGL)"_qs, QRegularExpression::MultilineOption);
    static const QRegularExpression kEnd(u"^OK\\r?$.*"_qs,
                                         QRegularExpression::MultilineOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    QByteArrayList result;
    for (QString record : QString::fromLatin1(listing).split(kStart)) {
        result += record.remove(kEnd).toLatin1();
    }
    return result;
}

/// The place of a record that says it in the form that counts, else -1.
int placeOf(const QByteArray &record)
{
    static const QRegularExpression kPlace(u"^\\+CMGL: ([0-9]+),"_qs);
    const auto match = kPlace.match(QString::fromLatin1(record));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

/// The sender of a received message in good form, as it is to be filed; else empty.
QString senderOf(const QByteArray &record)
{
    static const QRegularExpression kHeader(
        u"^\\+CMGL: [1-9][0-9]*,\"REC (?:UN)?READ\",\"([^\"]+)\","_qs);
    return kHeader.match(QString::fromLatin1(record)).captured(1);
}

/// A world in which another modem may take the place of the simulated one for some commands.
class Play {
public:
    explicit Play(Line line) : line_(line), world({.line = line})
    {
        auto &onWrite = line == Line::Com ? world.port.onWrite : world.socket.onWrite;
        onWrite = [this](const QByteArray &bytes) { hears(bytes); };
    }

    void says(const QByteArray &bytes)
    {
        line_ == Line::Com ? world.port.feed(bytes) : world.socket.feed(bytes);
    }
    /// The next command that begins so is answered by these bytes alone.
    void answersOnce(const QByteArray &command, const QByteArray &bytes)
    {
        command_ = command;
        answer_ = bytes;
    }
    bool hasAnswered() const { return command_.isEmpty(); }

    /// Another modem's store is listed and emptied, for as long as this takes.
    void listsStore(const QByteArrayList &records)
    {
        store_ = records;
        listing_ = true;
        says("\r\n+CMTI: \"SM\",1\r\n");
        world.runUntil([this] { return store_.isEmpty(); }, 2min);
        listing_ = false;
        world.clock.run(10s);
    }

    void livesOn()
    {
        const QByteArray text = "Etterpaa " + QByteArray::number(++messages_);
        const QString count = u"SELECT count(*) FROM SMS_Received WHERE SMS_Text = '"_qs +
                              QString::fromLatin1(text) + u'\'';
        world.network.send(u"+4798765432"_qs, world.modem.ownNumber(), text);
        EXPECT_TRUE(world.runUntil([&] { return world.value(count) == u"1"; }, 5min));
        EXPECT_TRUE(world.application().module().ModemReady);
    }
    void registersAUser()
    {
        world.registerUser(u"+4791234567"_qs);
        EXPECT_TRUE(world.runUntilStatus(u"+4791234567"_qs, u"Aktiv "_qs));
    }

private:
    void hears(const QByteArray &bytes)
    {
        if (!command_.isEmpty() && bytes.startsWith(command_)) {
            inText_ = command_.startsWith("AT+CMGS");
            command_.clear();
            says(answer_);
        } else if (inText_) {
            inText_ = !bytes.endsWith('\x1A');
        } else if (listing_ && bytes.startsWith("AT+CMGL")) {
            lists();
        } else if (listing_ && bytes.startsWith("AT+CMGD=")) {
            const int place = bytes.mid(8).trimmed().toInt();
            store_.removeIf([&](const QByteArray &record) { return placeOf(record) == place; });
            says("\r\nOK\r\n");
        } else {
            world.modem.receive(bytes);
        }
    }
    void lists()
    {
        milliseconds delay = 10ms;
        for (const QByteArray &record : store_ + QByteArrayList{"\r\nOK\r\n"}) {
            world.clock.after(delay, [this, record] { says(record); });
            delay += 300ms; // slow as a line of 9600 baud
        }
    }

    Line line_;
    QByteArray command_;
    QByteArray answer_;
    bool inText_ = false;
    bool listing_ = false;
    QByteArrayList store_;
    int messages_ = 0;

public:
    World world;
};

class SeenOn : public testing::TestWithParam<Line> {
protected:
    /// All of the collection happens to one program, which lives on each time and in the end.
    void all(const std::function<void(const Seen &)> &happens)
    {
        const std::vector<Seen> collection = seen();
        EXPECT_GE(collection.size(), 1U) << "cannot read " LUKORA_TRANSCRIPTS;
        for (const Seen &one : collection) {
            SCOPED_TRACE(one.name);
            happens(one);
            play.livesOn();
        }
        play.registersAUser();
    }

    Play play{GetParam()};
    World &world = play.world;
};

TEST_P(SeenOn, ALineThatIsSaidUnasked)
{
    all([&](const Seen &one) {
        play.says("\r\n" + one.bytes + "\r\n");
        world.clock.run(10s);
    });
}

TEST_P(SeenOn, AnAnswerToAListing)
{
    all([&](const Seen &one) {
        play.answersOnce("AT+CMGL=ALL\r", "\r\n" + one.bytes + "\r\n");
        play.says("\r\n+CMTI: \"SM\",1\r\n");
        EXPECT_TRUE(world.runUntil([&] { return play.hasAnswered(); }, 2min));
        world.clock.run(30s); // it deletes what it read, which must not hit the next message
    });
}

TEST_P(SeenOn, AnAnswerToASubmission)
{
    const QString waiting = u"SELECT count(*) FROM SMS_Sent WHERE CMGS = 'UNSENT'"_qs;
    all([&](const Seen &one) {
        play.answersOnce("AT+CMGS=", one.bytes + "\r\n");
        world.execute(u"INSERT INTO SMS_Sent (TilNummer, SMS_Text, CMGS) VALUES "
                      "('+4798765432', 'Hei', 'UNSENT')"_qs);
        EXPECT_TRUE(world.runUntil(
            [&] { return play.hasAnswered() && world.value(waiting) == u"0"; }, 10min));
    });
}

TEST_P(SeenOn, AnAnswerToTheStart)
{
    all([&](const Seen &one) {
        play.answersOnce("AT+CGMI\r", "\r\n" + one.bytes + "\r\n");
        world.chooseLineAgain();
        EXPECT_TRUE(world.runUntil([&] { return play.hasAnswered(); }, 1min));
    });
}

TEST_P(SeenOn, AStoreWhoseMessagesAreFiled)
{
    int senders = 0;
    all([&](const Seen &one) {
        const QByteArrayList records = recordsOf(one.bytes);
        world.execute(u"DELETE FROM SMS_Received"_qs);
        play.listsStore(records);
        for (const QByteArray &record : records) {
            if (const QString sender = senderOf(record); !sender.isEmpty()) {
                const QString filed =
                    u"SELECT count(*) FROM SMS_Received WHERE FraNummer = '%1'"_qs;
                EXPECT_NE(world.value(filed.arg(sender)), u"0") << record.constData();
                ++senders;
            }
        }
    });
    EXPECT_GE(senders, 30) << "the collection holds many more than none";
}

INSTANTIATE_TEST_SUITE_P(Lines, SeenOn, testing::Values(Line::Com, Line::Tcp),
                         [](const auto &line) { return line.param == Line::Com ? "Com" : "Tcp"; });

} // namespace
