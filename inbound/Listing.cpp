#include "inbound/Listing.h"

#include "inbound/MessageRecord.h"
#include "modem/ModemLine.h"
#include "modem/ModemWords.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kReadsOfSilence = 4;
// Far over what a store of 255 places fills: a line that never rests must not hold the reader.
constexpr int kMostReadings = 60;
constexpr int kMostLines = 500;
constexpr int kMostNotices = 20; ///< behind an "OK"
constexpr milliseconds kAWhile = 2s;

} // namespace

void Listing::begin(const QString &header)
{
    // In PDU mode none can be read.
    if (!isHeader(closedUp(header))) {
        oddLines_ += header;
        // In the middle of a line it is somebody's text, and the place in it of his choice.
        isBroken_ =
            !beginsLikeHeader(header) || !seenBefore_.contains(header) || isPduHeader(header);
    }
}

QString Listing::nextLine()
{
    const QString line = ahead_.isEmpty() ? line_.ReadWholeLine() : std::exchange(ahead_, {});
    bareEnds_ = line.isEmpty() ? 0 : line_.takeBareEnds(); // of a line that comes late, all
    return line;
}

/// Some modems put an empty line before each line, or a second carriage return at its end: what
/// goes beyond that is a part of the text. Around a notice there may be any.
void Listing::addLine(QStringList &lines, const QString &line, bool followsNotice)
{
    if (lines.isEmpty()) {
        usualBareEnds_ = bareEnds_;
    } else if (!followsNotice) {
        const int empty = (bareEnds_ - usualBareEnds_) / (usualBareEnds_ + 1);
        lines += QStringList(std::clamp(empty, 0, kMostLines));
    }
    lines += line;
}

/// Whether an "OK" or an error is the end of the listing, and no line of a text: somebody may have
/// written just that. What follows tells, and a modem sends it at once.
bool Listing::endsWith(const QString &line, bool hasText)
{
    if (!isFinalOk(line) && !isFinalError(line)) {
        return false;
    }
    bool isRestart = false;
    // A text is there mostly. Only where none is, the next line is worth a wait.
    for (int passes = 0; ahead_.isEmpty() && passes < kMostNotices &&
                         (hasText ? line_.lineFollows() : line_.lineFollows(kAWhile));
         ++passes) {
        ahead_ = line_.ReadWholeLine();
        if (ahead_.isEmpty()) {
            break;
        }
        if (isUnsolicited(ahead_)) {
            isRestart = isRestart || isBootWord(ahead_);
            judge(std::exchange(ahead_, {}));
            hasText = true; // nothing to wait for any more
        }
    }
    hasRestarted_ = isRestart && ahead_.isEmpty();
    return ahead_.isEmpty();
}

/// Whether a header stands where a text should, with nothing of its own behind it: then somebody
/// has written it. Else the message before it has no text.
bool Listing::endsBehind(const QString &header)
{
    if (isHeader(header) && !isReceivedMessage(header)) {
        return false;
    }
    ahead_ = line_.lineFollows(kAWhile) ? line_.ReadWholeLine() : QString();
    if (ahead_.isEmpty() || isFinalOk(ahead_) || beginsLikeHeader(ahead_)) {
        return true;
    }
    ahead_.clear(); // the text of the next
    return false;
}

QString Listing::readText()
{
    QStringList lines;
    QString passedOver;
    bool followsNotice = false;
    int silent = 0;
    line_.takeBareEnds(); // around the header
    for (int reads = 0; reads < kMostLines && silent < kReadsOfSilence; ++reads) {
        const QString line = nextLine();
        if (line.isEmpty()) {
            ++silent;
            continue;
        }
        const bool isNext = !passedOver.isEmpty() && isHeader(closedUp(line));
        if (beginsLikeHeader(line) && (!lines.isEmpty() || isNext || !endsBehind(line))) {
            judge(line);
            break;
        }
        if (endsWith(line, !lines.isEmpty())) {
            end_ = isFinalOk(line) ? End::Ok : End::Error;
            break;
        }
        if (isUnsolicited(line)) {
            judge(line);
            passedOver = line;
        } else {
            addLine(lines, line, followsNotice);
            silent = 0; // a notice is no sign that the listing goes on
        }
        followsNotice = passedOver == line;
    }
    isBroken_ = isBroken_ || lines.size() >= kMostLines;
    if (silent == kReadsOfSilence) {
        end_ = End::Silence;
        // A slow modem may bring the text behind a notice yet.
        isBroken_ = isBroken_ || hasStarted_ || !line_.isOpen() || lines.isEmpty();
    }
    return lines.isEmpty() ? passedOver : lines.join(u'\n');
}

void Listing::readToEnd()
{
    bool isOk = false;
    for (int readings = 0; end_ == End::None && readings < kMostReadings; ++readings) {
        bool cameAnything = false;
        bool isRestart = false;
        const bool ok = line_.WaitForModemOK([&](const QString &line) {
            cameAnything |= !line.isEmpty() && !isUnsolicited(line);
            isRestart = isRestart || isBootWord(line);
            judge(line);
        });
        // Somebody's text may be just that; a modem sends what follows at once. What it says
        // unasked may follow the end, too.
        hasRestarted_ = hasRestarted_ || (isOk && isRestart && !cameAnything);
        isOk = ok || (isOk && !cameAnything);
        const bool atEnd = isOk && (!ok || !line_.lineFollows());
        end_ = atEnd ? End::Ok : ok || cameAnything ? End::None : End::Silence;
    }
}

void Listing::judge(const QString &line)
{
    if (beginsLikeHeader(line) && !isHeader(closedUp(line))) {
        oddLines_ += line;
        isBroken_ = isBroken_ || !seenBefore_.contains(line);
    }
    hasStarted_ = hasStarted_ || isBootWord(line);
}
