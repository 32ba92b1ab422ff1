#include "simulator/SimulatedModem.h"

namespace {

constexpr char kEndOfText = 26;
constexpr char kAbortText = 27;
constexpr char kBackspace = 8;

constexpr qsizetype kLongestLine = 600;
constexpr qsizetype kMostInput = 65'536; // held back during a submission
constexpr qsizetype kMostOutput = 262'144;
constexpr size_t kMostNotices = 100;

/// What a broken line makes of an answer.
QByteArray noise()
{
    return QByteArray("\x00\xff\x81#\x7f\r\xfe~\x00{\n\xc3%", 13);
}

bool isSameLetter(char byte, char capital)
{
    return byte == capital || byte == capital + ('a' - 'A');
}

} // namespace

SimulatedModem::SimulatedModem(Clock &clock, SmsNetwork &network, const QString &ownNumber)
    : network_(network),
      ownNumber_(ownNumber),
      busy_(clock.timer([this] { waitIsOver(); })),
      pacer_(clock.timer([this] { writeWaiting(); }))
{
    network_.addPhone(ownNumber_,
                      {[this](const SmsMessage &message) { return takeMessage(message); },
                       [this](const SmsReport &report) { return takeReport(report); }});
}

SimulatedModem::~SimulatedModem()
{
    network_.removePhone(ownNumber_);
}

void SimulatedModem::setOutput(std::function<void(const QByteArray &)> output)
{
    output_ = std::move(output);
}

void SimulatedModem::lineClosed()
{
    input_.clear();
    line_.clear();
    stopWriting();
    // A submission under way goes on without the PC.
    if (state_ == State::Text || state_ == State::Prompting) {
        state_ = State::Command;
        busy_->setEnabled(false);
    }
}

void SimulatedModem::receive(const QByteArray &bytes)
{
    if (faults_.mute) {
        return;
    }
    input_ += bytes;
    takeInput();
    input_.truncate(kMostInput);
}

void SimulatedModem::takeInput()
{
    // An answer may make the PC write on at once.
    if (taking_) {
        return;
    }
    taking_ = true;
    while (!input_.isEmpty() && !busy_->isEnabled()) {
        const char byte = input_.front();
        input_.remove(0, 1);
        if (state_ == State::Text) {
            takeTextByte(byte);
        } else {
            takeCommandByte(byte);
        }
    }
    taking_ = false;
}

void SimulatedModem::echo(char byte)
{
    if (settings_.echo) {
        write(QByteArray(1, byte));
    }
}

void SimulatedModem::takeCommandByte(char byte)
{
    echo(byte);
    if (byte == '\r') {
        const QByteArray line = std::exchange(line_, {});
        if (line.size() >= 2) {
            execute(line);
        }
        return;
    }
    if (byte == kBackspace) {
        line_.chop(1);
        return;
    }
    // Until "AT" has come, everything is line noise.
    if (line_.size() == 1 && !isSameLetter(byte, 'T')) {
        line_.clear();
    }
    if (line_.isEmpty() && !isSameLetter(byte, 'A')) {
        return;
    }
    const bool isControl = byte >= 0 && byte < ' ';
    if (!isControl && line_.size() <= kLongestLine) {
        line_ += byte;
    }
}

void SimulatedModem::takeTextByte(char byte)
{
    if (byte == kEndOfText) {
        endText();
    } else if (byte == kAbortText) {
        state_ = State::Command;
        finish(kOk);
    } else {
        echo(byte);
        if (text_.size() <= kLongestText) {
            text_ += byte;
        }
        if (byte == '\r') {
            write(settings_.echo ? "\n> " : "\r\n> ");
        }
    }
}

void SimulatedModem::execute(const QByteArray &line)
{
    const bool isTooLong = line.size() > kLongestLine;
    if (faults_.lineBeforeAnswer.take()) {
        answer(faults_.unsolicited);
    }
    Result result = isTooLong ? kError : kOk;
    for (const AtCommand &command :
         isTooLong ? std::vector<AtCommand>() : atCommands(line.mid(2))) {
        result = run(command);
        if (result.kind != Result::Kind::Ok) {
            break;
        }
    }
    finish(result);
    // A deletion may have made room.
    network_.memoryAvailable(ownNumber_);
}

SimulatedModem::Result SimulatedModem::run(const AtCommand &command)
{
    for (const Row *row = kRows; row->name; ++row) {
        if (command.name == row->name) {
            return (this->*row->handler)(command);
        }
    }
    return fixed(command);
}

void SimulatedModem::finish(Result result)
{
    static constexpr const char *kWords[] = {"OK", "ERROR", "+CMS ERROR: ", "+CME ERROR: "};
    static constexpr const char *kDigits[] = {"0\r", "4\r"};
    if (result.kind == Result::Kind::Cme && settings_.errors == 0) {
        result = kError;
    }
    const auto kind = static_cast<size_t>(result.kind);
    const bool numbered = result.kind == Result::Kind::Cms || result.kind == Result::Kind::Cme;
    if (result.kind != Result::Kind::None && !settings_.quiet) {
        if (numbered) {
            answer(kWords[kind] + QByteArray::number(result.number));
        } else if (settings_.verbose) {
            answer(kWords[kind]);
        } else {
            write(faults_.garbage ? noise() : QByteArray(kDigits[kind]));
        }
    }
    flushNotices();
}

void SimulatedModem::answer(const QByteArray &text)
{
    if (faults_.garbage) {
        write(noise());
        return;
    }
    QByteArray framed = (settings_.verbose ? "\r\n" : "") + text + "\r\n";
    for (const char *name : {"+CMGS:", "+CMGL:", "+CMTI:", "+CDSI:"}) {
        if (faults_.noBlanks) {
            framed.replace(QByteArray(name) + ' ', name);
        }
    }
    write(framed);
}

void SimulatedModem::notify(const QByteArray &text)
{
    if (notices_.size() == kMostNotices) {
        notices_.pop_front();
    }
    notices_.push_back(text);
    flushNotices();
}

void SimulatedModem::flushNotices()
{
    // Not into the middle of a command, a text or a submission, which the PC may begin between
    // two of them; with mode 0 not at all.
    while (!notices_.empty() && state_ == State::Command && line_.isEmpty() &&
           settings_.cnmi[0] != 0) {
        const QByteArray notice = notices_.front();
        notices_.pop_front();
        answer(notice);
    }
}

void SimulatedModem::write(const QByteArray &bytes)
{
    if (faults_.mute || !output_) {
        return;
    }
    QByteArray framed = bytes;
    framed.replace("\r\n", faults_.lineEnd);
    waiting_ += framed.left(kMostOutput - waiting_.size());
    const milliseconds pace = std::max({faults_.perCharacter, faults_.heldBack, faults_.perLine});
    if (pace <= 0ms) {
        writeWaiting();
    } else if (!pacer_->isEnabled()) {
        pacer_->setInterval(pace);
        pacer_->setEnabled(true);
    }
}

void SimulatedModem::writeWaiting()
{
    const bool isSlow = faults_.perCharacter > 0ms;
    const qsizetype lineEnd = faults_.perLine > 0ms ? waiting_.indexOf('\n') + 1 : 0;
    QByteArray bytes = isSlow ? waiting_.left(1) : lineEnd > 0 ? waiting_.left(lineEnd) : waiting_;
    waiting_.remove(0, bytes.size());
    if (waiting_.isEmpty()) {
        pacer_->setEnabled(false);
    }
    if (faults_.heldBack > 0ms) {
        bytes.replace("\r\n\r\n", "\r\n");
    }
    const qsizetype piece = faults_.split ? 1 : bytes.size();
    for (qsizetype start = 0; start < bytes.size() && output_; start += piece) {
        output_(bytes.mid(start, piece));
    }
}

void SimulatedModem::stopWriting()
{
    waiting_.clear();
    pacer_->setEnabled(false);
}
