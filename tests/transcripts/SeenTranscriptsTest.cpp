// What real modems were seen to say, a collection that stands beside the checkout: the program
// survives all of it, wherever it comes.

#include "inbound/InboundWorld.h"
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

/// The sender of a received message in good form, as it is to be filed; else empty.
QString senderOf(const QByteArray &record)
{
    static const QRegularExpression kHeader(
        u"^\\+CMGL: [1-9][0-9]*,\"REC (?:UN)?READ\",\"([^\"]+)\","_qs);
    return kHeader.match(QString::fromLatin1(record)).captured(1);
}

/// One program, to which all of it happens.
class SeenOn : public testing::TestWithParam<Line> {
protected:
    SeenOn()
    {
        world.port.onWrite =
            world.socket.onWrite = [this](const QByteArray &bytes) { hears(bytes); };
    }

    void says(const QByteArray &bytes)
    {
        GetParam() == Line::Com ? world.port.feed(bytes) : world.socket.feed(bytes);
    }
    /// The next command that begins so is answered by these bytes alone.
    void answersOnce(const QByteArray &command, const QByteArray &bytes)
    {
        command_ = command;
        answer_ = bytes;
    }
    /// That command comes, and what it is sent for is done.
    void expectAnswered(milliseconds limit, const QString &doneWhenEmpty = u"0"_qs)
    {
        EXPECT_TRUE(world.runUntil(
            [&] {
                return command_.isEmpty() && world.value(u"SELECT "_qs + doneWhenEmpty) == u"0";
            },
            limit));
    }
    void expectLife()
    {
        const QByteArray text = "Etterpaa " + QByteArray::number(++messages_);
        const QString count = u"SELECT count(*) FROM SMS_Received WHERE SMS_Text = '"_qs +
                              QString::fromLatin1(text) + u'\'';
        world.network.send(u"+4798765432"_qs, world.modem.ownNumber(), text);
        EXPECT_TRUE(world.runUntil([&] { return world.value(count) == u"1"; }, 5min));
        EXPECT_TRUE(world.application().module().ModemReady);
    }

    World world{{.line = GetParam()}};

private:
    void hears(const QByteArray &bytes)
    {
        if (!command_.isEmpty() && bytes.startsWith(command_)) {
            inText_ = command_.startsWith("AT+CMGS");
            command_.clear();
            says(answer_);
        } else if (inText_) {
            inText_ = !bytes.endsWith('\x1A');
        } else {
            world.modem.receive(bytes);
        }
    }

    QByteArray command_;
    QByteArray answer_;
    bool inText_ = false;
    int messages_ = 0;
};

TEST_P(SeenOn, TheProgramLivesOnWhereverItComes)
{
    const std::pair<const char *, std::function<void(const QByteArray &)>> kPlaces[] = {
        {"unasked",
         [&](const QByteArray &bytes) {
             says("\r\n" + bytes + "\r\n");
             world.clock.run(10s);
         }},
        {"listing",
         [&](const QByteArray &bytes) {
             answersOnce("AT+CMGL=ALL\r", "\r\n" + bytes + "\r\n");
             says("\r\n+CMTI: \"SM\",1\r\n");
             expectAnswered(2min);
             world.clock.run(30s); // it deletes what it read, which must not hit the next message
         }},
        {"submission",
         [&](const QByteArray &bytes) {
             answersOnce("AT+CMGS=", bytes + "\r\n");
             world.execute(u"INSERT INTO SMS_Sent (TilNummer, SMS_Text, CMGS) VALUES "
                           "('+4798765432', 'Hei', 'UNSENT')"_qs);
             expectAnswered(10min, u"count(*) FROM SMS_Sent WHERE CMGS = 'UNSENT'"_qs);
         }},
        {"start", [&](const QByteArray &bytes) {
             answersOnce("AT+CGMI\r", "\r\n" + bytes + "\r\n");
             world.chooseLineAgain();
             expectAnswered(1min);
         }}};
    const std::vector<Seen> collection = seen();
    EXPECT_GE(collection.size(), 1U) << "cannot read " LUKORA_TRANSCRIPTS;
    // What the collection lists is in no store, and some of it is there twice.
    const auto bears = [](const QString &text) {
        EXPECT_TRUE(text.startsWith(u"Modemet sletter ikke melding "_qs)) << qPrintable(text);
        return Answer::Ok;
    };
    for (const auto &[place, happens] : kPlaces) {
        world.person.habit = {};
        if (QByteArray(place) == "listing") {
            world.person.habit = bears;
        }
        for (const Seen &one : collection) {
            SCOPED_TRACE(one.name + ' ' + place);
            happens(one.bytes);
            expectLife();
        }
    }
    world.registerUser(u"+4791234567"_qs);
    EXPECT_TRUE(world.runUntilStatus(u"+4791234567"_qs, u"Aktiv "_qs));
}

INSTANTIATE_TEST_SUITE_P(Lines, SeenOn, testing::Values(Line::Com, Line::Tcp),
                         [](const auto &line) { return line.param == Line::Com ? "Com" : "Tcp"; });

TEST(Seen, MessagesOfAStoreAreFiled)
{
    InboundWorld world;
    int senders = 0;
    const auto isFiled = [&](const QByteArray &record, const QString &sender) {
        const int place = corpusIndex(record);
        world.store[place] = record;
        for (int times = 0; times < 3 && world.store.contains(place); ++times) {
            world.lists();
            world.clock.run(1min); // until a listing without its end is given up
        }
        world.store.clear();
        const QString filed = u"SELECT count(*) FROM SMS_Received WHERE FraNummer = ?"_qs;
        return world.database.single(filed, {sender}) != u"0";
    };
    for (const Seen &one : seen()) {
        SCOPED_TRACE(one.name);
        world.empty();
        for (const QByteArray &record : recordsOf(one.bytes)) {
            const QString sender = senderOf(record);
            EXPECT_TRUE(isFiled(record, sender) || sender.isEmpty()) << record.constData();
            senders += sender.isEmpty() ? 0 : 1;
        }
        EXPECT_TRUE(isFiled(listed("+4711111111", "Etterpaa"), u"+4711111111"_qs));
    }
    EXPECT_GE(senders, 30) << "the collection holds many more than none";
}

} // namespace
