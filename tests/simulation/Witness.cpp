#include "simulation/Witness.h"

#include "simulation/Step.h"
#include "simulator/GsmAlphabet.h"

#include <algorithm>
#include <utility>

namespace {

constexpr size_t kEvents = 20;
/// No read of the program gives up sooner than this behind the last character.
constexpr milliseconds kShortestPatience = 900ms;
/// Notices may keep the line busy meanwhile: behind so long a time it may be given up all the same.
constexpr milliseconds kLongestPatience = 20s;
/// The answer to a command that was given up may come yet, and is taken for that to the next.
constexpr milliseconds kOutOfStep = 5min;
constexpr milliseconds kResultTimeOut = 20'000ms;
constexpr milliseconds kPace = 30'000ms;
/// For so long behind a submission a fault of the file may keep its result from the row.
constexpr milliseconds kFiling = 60'000ms;

bool isFinal(const QByteArray &line)
{
    return line == "OK" || line == "ERROR" || line.startsWith("+CMS ERROR") ||
           line.startsWith("+CME ERROR");
}

} // namespace

QString lettersOf(const QString &text)
{
    QString letters;
    for (const QChar c : text) {
        if (c.unicode() < 128 && c.isLetterOrNumber()) {
            letters += c;
        }
    }
    return letters;
}

MessageKey messageKey(const QString &from, const QString &stamp, const QString &text)
{
    // The "OK" of a listing that another one follows at once cannot be told from one in the text.
    QString letters = lettersOf(text);
    if (letters.endsWith(u"OK")) {
        letters.chop(2);
    }
    return (from + u' ' + stamp + u' ' + letters).toStdString();
}

void Witness::complain(const char *rule, const std::string &text)
{
    event(std::string("broken: ") + rule);
    violations_.push_back({rule, text});
}

void Witness::event(const std::string &what)
{
    events_.push_back(dayAndTime(clock_.elapsed()) + ' ' + what);
    if (onEvent) {
        onEvent(events_.back());
    }
    if (events_.size() > kEvents) {
        events_.pop_front();
    }
}

void Witness::toModem(int modem, const QByteArray &bytes)
{
    constexpr char kEndOfText = 26;
    Line &line = lines_[modem];
    for (const char byte : bytes) {
        if (byte == kEndOfText) {
            const QString letters = lettersOf(QString::fromLatin1(line.typed));
            submissions_.push_back({.at = clock_.elapsed(),
                                    .to = line.recipient,
                                    .letters = letters,
                                    .excused = troubled_});
            line.typed.clear();
            line.isText = false;
        } else if (byte == '\r' && !line.isText) {
            command(line);
            line.typed.clear();
        } else {
            line.typed += byte;
        }
    }
    line.lastActivity = clock_.elapsed();
}

void Witness::command(Line &line)
{
    const milliseconds now = clock_.elapsed();
    if (line.isOpen &&
        (now - line.lastActivity >= kShortestPatience || now - line.opened >= kLongestPatience)) {
        line.outOfStepUntil = now + kOutOfStep;
    } else if (line.isOpen && now >= line.outOfStepUntil) {
        complain("one dialogue at a time",
                 (line.typed + " inside of " + line.command).toStdString());
    }
    event('>' + line.typed.toStdString());
    line.isOpen = true;
    line.opened = now;
    line.command = line.typed;
    if (line.typed.startsWith("AT&F")) {
        paced_ = false; // an initialisation sets its own pace
    }
    if (!line.typed.startsWith("AT+CMGS=")) {
        return;
    }
    line.isText = true;
    line.recipient = QString::fromLatin1(line.typed.mid(8));
    if (paced_ && clock_.elapsed() - pacedSince_ < kPace) {
        complain("30 seconds between messages",
                 std::to_string((clock_.elapsed() - pacedSince_).count()) + " ms");
    }
}

void Witness::fromModem(int modem, const QByteArray &bytes)
{
    Line &line = lines_[modem];
    for (const char byte : bytes) {
        if (byte == '\r' || byte == '\n') {
            if (!line.said.isEmpty()) {
                modemSays(line, line.said, byte == '\r');
            }
            line.said.clear();
        } else {
            line.said += byte;
        }
    }
    if (line.said.startsWith('>')) {
        line.isOpen = false;
        line.said.clear();
    }
    line.lastActivity = clock_.elapsed();
}

void Witness::modemSays(Line &line, const QByteArray &text, bool isHeard)
{
    event('<' + text.toStdString());
    if (isFinal(text)) {
        line.isOpen = false;
    }
    if (text.startsWith("+CMGL:")) {
        paced_ = false; // a message that was read sets the pace to 3 seconds, whatever it was
    }
    if (!text.startsWith("+CMGS:") || submissions_.empty()) {
        return;
    }
    Submission &last = submissions_.back();
    // What comes too late for the program it does not hear, and then it sends again: that is
    // required. Without the end of a line it hears it only where the modem pauses behind it.
    if (clock_.elapsed() - last.at >= kResultTimeOut) {
        return;
    }
    told_[{last.to, last.letters}].push_back(QString::fromLatin1(text.mid(6).trimmed()));
    if (!isHeard) {
        return;
    }
    last.heard = true;
    // A result that cannot be written leaves the message in the queue, at the pace that was.
    paced_ = !troubled_;
    pacedSince_ = clock_.elapsed();
}

void Witness::removed(const MessageRecord &record)
{
    if (record.kind == MessageRecord::Kind::Received) {
        ++messages_[messageKey(record.number, record.stamp.toString(u"yy/MM/dd,HH:mm:ss"),
                               QString::fromLatin1(record.text))]
              .removed;
    }
}

void Witness::submitted(const SmsMessage &message)
{
    event("network takes \"" + fromGsm(message.text).toStdString() + "\" for " +
          message.to.toStdString());
    if (submissions_.empty()) {
        return;
    }
    submissions_.back().isAccepted = true;
}

void Witness::boxClosed(milliseconds opened)
{
    for (auto it = submissions_.rbegin();
         it != submissions_.rend() && opened - std::max(it->at, it->heldUntil) < kFiling; ++it) {
        it->heldUntil = clock_.elapsed();
    }
}

void Witness::setTrouble(bool troubled)
{
    troubled_ = troubled;
    for (auto it = submissions_.rbegin();
         it != submissions_.rend() && clock_.elapsed() - std::max(it->at, it->heldUntil) < kFiling;
         ++it) {
        it->excused = it->excused || troubled;
    }
    paced_ = paced_ && !troubled;
}

void Witness::placesChange(const MessageStore &store)
{
    for (const auto &[place, record] : store.records()) {
        ++messages_[messageKey(record.number, record.stamp.toString(u"yy/MM/dd,HH:mm:ss"),
                               QString::fromLatin1(record.text))]
              .again;
    }
}

void Witness::programEnded(const std::vector<const MessageStore *> &stores)
{
    for (const MessageStore *store : stores) {
        placesChange(*store);
    }
    // The result of a submission may have come to nobody.
    const bool wasTroubled = std::exchange(troubled_, false);
    setTrouble(true);
    troubled_ = wasTroubled;
    std::ranges::fill(lines_, Line());
}

void Witness::interrupted()
{
    for (Line &line : lines_) {
        line.isOpen = false;
    }
}

bool Witness::wasTold(const QString &to, const QString &letters, const QString &reference) const
{
    const auto found = told_.find({to, letters});
    return found != told_.end() &&
           std::ranges::find(found->second, reference) != found->second.end();
}
