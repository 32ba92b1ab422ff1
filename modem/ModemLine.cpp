#include "modem/ModemLine.h"

#include "data/Module1.h"
#include "modem/ModemView.h"
#include "modem/ModemWords.h"
#include "platform/SerialPort.h"
#include "platform/TcpSocket.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kTerminalLength = 600;

constexpr milliseconds kComTimeOut = 2000ms;
constexpr milliseconds kComPoll = 50ms;
constexpr milliseconds kNetworkTimeOut = 1000ms;
constexpr milliseconds kNetworkPoll = 10ms;
constexpr milliseconds kMostPatience = 10s;

// A read on the network keeps so much of what it did not take, and loses the rest.
constexpr int kKeptBehindRead = 1000;

// A message is 160 characters and a listing of a full SIM under 64 KiB: more without a line end
// is no modem that one could understand, and must not fill the memory.
constexpr qsizetype kLongestInput = 64 * 1024;

constexpr int kMostLines = 100;
constexpr int kLinesOfSilence = 3;

QString withoutEnds(const QString &text, QChar end)
{
    qsizetype first = 0;
    qsizetype behind = text.size();
    while (first < behind && text[first] == end) {
        ++first;
    }
    while (behind > first && text[behind - 1] == end) {
        --behind;
    }
    return text.mid(first, behind - first);
}

} // namespace

ModemLine::ModemLine(Clock &clock, Module1 &module, SerialPort &MSComm1, TcpSocket &Winsock1,
                     ModemView &view)
    : clock_(clock), module_(module), MSComm1_(MSComm1), Winsock1_(Winsock1), view_(view)
{
}

bool ModemLine::onNetwork() const
{
    return module_.ActiveComPort == kNetworkModem;
}

void ModemLine::SendData(const QString &OutString)
{
    const QByteArray bytes = toLineBytes(OutString);
    begun_.clear();
    widestGap_ = 0ms;
    lastLine_ = 0ms;
    isAwaited_ = false;
    bareEnds_ = 0;
    lastSent_ = withoutEnds(OutString, u'\r');
    if (!onNetwork()) {
        MSComm1_.write(bytes);
    } else if (Winsock1_.state() == TcpSocket::State::Connected) {
        Winsock1_.write(TelnetFilter::escaped(bytes));
    }
    const bool hasEnd = OutString.endsWith(u'\r');
    writeTerminal(u"==>"_qs + (hasEnd ? OutString.chopped(1) : OutString) + u"\r\n"_qs);
}

void ModemLine::ReceiveData(const QString & /*InputString*/) {}

QString ModemLine::ReadModemLine()
{
    // A line of one character ends no read, so the bare ends between answers don't.
    QString line;
    readLine(line, [](const QString &text) { return text.size() >= 2; });
    return taken(line);
}

QString ModemLine::ReadWholeLine()
{
    // A tick inside the read, held up by a box, goes on with what has come.
    isAwaited_ = isAwaited_ || !hasLine();
    const bool hasEnded =
        readLine(begun_, [](const QString &text) { return !withoutEnds(text, u'\n').isEmpty(); });
    if (hasEnded) {
        if (std::exchange(isAwaited_, false) && lastLine_ > 0ms) {
            widestGap_ = std::max(widestGap_, clock_.elapsed() - lastLine_);
        }
        lastLine_ = clock_.elapsed();
    }
    return taken(hasEnded ? std::exchange(begun_, {}) : QString());
}

QString ModemLine::taken(const QString &read)
{
    const QString line = withoutEnds(withoutEnds(read, u'\n'), u'\r');
    signs_.echo |= !line.isEmpty() && line == lastSent_;
    signs_.boot |= isBootWord(line);
    // An empty line too: a long time-out shows as a row of empty marks.
    writeTerminal(u'<' + line + u'\r');
    return line;
}

bool ModemLine::readLine(QString &line, Test isLine)
{
    return onNetwork() ? networkLine(line, isLine) : comLine(line, isLine);
}

bool ModemLine::comLine(QString &line, Test isLine)
{
    const milliseconds start = clock_.elapsed();
    bool atEnd = false;
    do {
        clock_.yield(MSComm1_.bytesAvailable() > 0 ? 0ms : kComPoll);
        // Whatever ran meanwhile may have taken the character, or the port.
        if (MSComm1_.bytesAvailable() > 0) {
            const QChar character(static_cast<char16_t>(MSComm1_.takeCharacter()));
            atEnd = character == u'\r';
            bareEnds_ += atEnd && !isLine(line) ? 1 : 0;
            if (!atEnd && line.size() < kLongestInput) {
                line += character;
            }
        }
    } while (!(atEnd && isLine(line)) && clock_.elapsed() - start <= kComTimeOut);
    if (atEnd && MSComm1_.bytesAvailable() > 0) {
        MSComm1_.takeCharacter(); // the line feed
    }
    return atEnd && isLine(line);
}

bool ModemLine::networkLine(QString &line, Test isLine)
{
    const milliseconds start = clock_.elapsed();
    do {
        clock_.yield(ModemRxBuffer.contains(u'\r') ? 0ms : kNetworkPoll);
        const qsizetype end = ModemRxBuffer.indexOf(u'\r');
        if (end >= 0) {
            line = ModemRxBuffer.left(end);
            bareEnds_ += isLine(line) ? 0 : 1;
            ModemRxBuffer = ModemRxBuffer.mid(end + 1, kKeptBehindRead);
            bringWhatIsKept();
        }
    } while (!isLine(line) && clock_.elapsed() - start <= kNetworkTimeOut);
    return isLine(line);
}

QString ModemLine::ReadModemPrompt()
{
    QString prompt = onNetwork() ? networkPrompt() : comPrompt();
    qsizetype lineEnds = 0;
    while (lineEnds < prompt.size() && (prompt[lineEnds] == u'\n' || prompt[lineEnds] == u'\r')) {
        ++lineEnds;
    }
    prompt = prompt.mid(lineEnds);
    writeTerminal(u"<**"_qs + prompt + u'\r');
    return prompt;
}

QString ModemLine::comPrompt()
{
    const milliseconds start = clock_.elapsed();
    do {
        clock_.yield(MSComm1_.bytesAvailable() > 0 ? 0ms : kComPoll);
        // Everything else that comes in these seconds is thrown away.
        if (MSComm1_.bytesAvailable() > 0 && MSComm1_.takeCharacter() == '>') {
            return u">"_qs;
        }
    } while (clock_.elapsed() - start <= kComTimeOut);
    return {};
}

QString ModemLine::networkPrompt()
{
    const milliseconds start = clock_.elapsed();
    QString prompt;
    do {
        clock_.yield(ModemRxBuffer.contains(u'>') ? 0ms : kNetworkPoll);
        // The prompt stands behind everything; without one the buffer is cut down too, from its
        // start.
        bring(arrived_.size());
        const qsizetype end = ModemRxBuffer.indexOf(u'>') + 1;
        prompt = ModemRxBuffer.left(end);
        ModemRxBuffer = ModemRxBuffer.mid(end, kKeptBehindRead);
    } while (prompt.isEmpty() && clock_.elapsed() - start <= kNetworkTimeOut);
    return prompt;
}

bool ModemLine::WaitForModemOK(const std::function<void(const QString &)> &use)
{
    for (int lines = 1;; ++lines) {
        const QString line = use ? ReadWholeLine() : ReadModemLine();
        if (isFinalOk(line)) {
            return true;
        }
        if (use) {
            use(line);
        }
        if (lines > kMostLines || (line.isEmpty() && lines > kLinesOfSilence)) {
            return false;
        }
    }
}

bool ModemLine::hasLine() const
{
    return onNetwork() ? ModemRxBuffer.contains(u'\r') : MSComm1_.bytesAvailable() > 0;
}

bool ModemLine::lineFollows(milliseconds atLeast)
{
    const milliseconds start = clock_.elapsed();
    const milliseconds patience = std::max(atLeast, std::min(2 * widestGap_, kMostPatience));
    isAwaited_ = isAwaited_ || !hasLine();
    while (!skipLineEnds() && clock_.elapsed() - start < patience) {
        clock_.yield(kComPoll);
    }
    return skipLineEnds();
}

bool ModemLine::skipLineEnds()
{
    const auto isEnd = [](QChar character) { return character == u'\r' || character == u'\n'; };
    if (onNetwork()) {
        while (!ModemRxBuffer.isEmpty() && isEnd(ModemRxBuffer.front())) {
            bareEnds_ += ModemRxBuffer.front() == u'\r' ? 1 : 0;
            ModemRxBuffer.remove(0, 1);
        }
        bringWhatIsKept();
        return hasLine();
    }
    while (begun_.isEmpty() && MSComm1_.bytesAvailable() > 0) {
        const QChar character(static_cast<char16_t>(MSComm1_.takeCharacter()));
        begun_ += isEnd(character) ? QString() : QString(character);
        bareEnds_ += character == u'\r' ? 1 : 0;
    }
    return !begun_.isEmpty();
}

bool ModemLine::isOpen() const
{
    // A socket that is still connecting counts as open.
    return onNetwork() ? Winsock1_.state() != TcpSocket::State::Closed : MSComm1_.isOpen();
}

void ModemLine::socketConnecting()
{
    telnet_ = TelnetFilter();
    arrived_.clear();
    ModemRxBuffer.clear();
    begun_.clear();
}

void ModemLine::socketData(const QByteArray &bytes)
{
    const TelnetFilter::Result result = telnet_.receive(bytes);
    if (!result.answer.isEmpty()) {
        Winsock1_.write(result.answer);
    }
    // The newest are kept, so that the first line end makes the line readable again.
    arrived_ += fromLineBytes(result.data);
    const qsizetype tooMuch = ModemRxBuffer.size() + arrived_.size() - kLongestInput;
    arrived_.remove(0, tooMuch - ModemRxBuffer.size());
    ModemRxBuffer.remove(0, tooMuch);
    bringWhatIsKept();
}

void ModemLine::bring(qsizetype characters)
{
    ModemRxBuffer = (ModemRxBuffer + arrived_.left(characters)).right(kLongestInput);
    arrived_.remove(0, characters);
}

// A network may save a whole listing up and bring it at once. Reading its first line would lose the
// end of it: the "OK", without which nothing is deleted, or half a header, which would be taken for
// one of no message.
void ModemLine::bringWhatIsKept()
{
    if (!ModemRxBuffer.contains(u'\r')) {
        const qsizetype end = arrived_.indexOf(u'\r');
        bring(end < 0 ? arrived_.size() : end + 1);
    }
    const qsizetype firstEnd = ModemRxBuffer.indexOf(u'\r');
    const qsizetype room = firstEnd + 1 + kKeptBehindRead - ModemRxBuffer.size();
    bring(qMax<qsizetype>(room, 0));
}

void ModemLine::clearTerminal()
{
    terminal_.clear();
    view_.setTerminal(terminal_);
}

void ModemLine::writeTerminal(const QString &text)
{
    terminal_ = (terminal_ + text).right(kTerminalLength);
    view_.setTerminal(terminal_);
}
