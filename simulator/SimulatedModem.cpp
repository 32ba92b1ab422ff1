#include "simulator/SimulatedModem.h"

#include "simulator/MessageLines.h"

namespace {

constexpr char kEndOfText = 26;
constexpr char kAbortText = 27;
constexpr char kBackspace = 8;

constexpr qsizetype kLongestLine = 600;
constexpr qsizetype kLongestText = 160;
constexpr qsizetype kMostInput = 64 * 1024;
constexpr qsizetype kMostSlowOutput = 256 * 1024;
constexpr size_t kMostNotices = 100;

constexpr int kInvalidTextParameter = 305;
constexpr int kMemoryFull = 322;

/// What a broken line makes of an answer.
QByteArray noise()
{
    return QByteArray("\x00\xff\x81#\x7f\r\xfe~\x00{\n\xc3%", 14);
}

bool isSameLetter(char byte, char capital)
{
    return byte == capital || byte == capital + ('a' - 'A');
}

} // namespace

SimulatedModem::SimulatedModem(Clock &clock, SmsNetwork &network, const QString &ownNumber)
    : network_(network),
      ownNumber_(ownNumber),
      submission_(clock.timer([this] { finishSubmission(); })),
      pacer_(clock.timer([this] { writeSlowly(); }))
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
    text_.clear();
    slow_.clear();
    pacer_->setEnabled(false);
    if (state_ == State::Text)
        state_ = State::Command;
}

void SimulatedModem::receive(const QByteArray &bytes)
{
    if (faults_.mute)
        return;
    input_ += bytes.left(kMostInput - input_.size());
    takeInput();
}

void SimulatedModem::takeInput()
{
    // An answer may make the PC write on at once.
    if (taking_)
        return;
    taking_ = true;
    while (!input_.isEmpty() && state_ != State::Submitting) {
        const char byte = input_.front();
        input_.remove(0, 1);
        if (state_ == State::Text)
            takeTextByte(byte);
        else
            takeCommandByte(byte);
    }
    taking_ = false;
}

void SimulatedModem::echo(char byte)
{
    if (settings_.echo)
        write(QByteArray(1, byte));
}

void SimulatedModem::takeCommandByte(char byte)
{
    echo(byte);
    if (byte == '\r') {
        const QByteArray line = std::exchange(line_, {});
        if (line.size() >= 2)
            execute(line);
        return;
    }
    if (byte == kBackspace) {
        line_.chop(1);
        return;
    }
    // Until "AT" has come, everything is line noise.
    if (line_.size() == 1 && !isSameLetter(byte, 'T'))
        line_.clear();
    if (line_.isEmpty() && !isSameLetter(byte, 'A'))
        return;
    const bool isControl = byte >= 0 && byte < ' ';
    if (!isControl && line_.size() <= kLongestLine)
        line_ += byte;
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
        if (text_.size() <= kLongestText)
            text_ += byte;
        if (byte == '\r')
            write("\n> ");
    }
}

void SimulatedModem::execute(const QByteArray &line)
{
    Result result = line.size() > kLongestLine ? kError : kOk;
    if (result.kind == Result::Kind::Ok) {
        for (const AtCommand &command : atCommands(line.mid(2))) {
            result = run(command);
            if (result.kind != Result::Kind::Ok)
                break;
        }
    }
    if (result.kind != Result::Kind::None)
        finish(result);
    offerRoom();
}

SimulatedModem::Result SimulatedModem::run(const AtCommand &command)
{
    for (const Row *row = kRows; row->name; ++row) {
        if (command.name == row->name)
            return (this->*row->handler)(command);
    }
    return fixed(command);
}

void SimulatedModem::finish(Result result)
{
    static constexpr const char *kWords[] = {"OK", "ERROR", "+CMS ERROR: ", "+CME ERROR: "};
    static constexpr const char *kDigits[] = {"0\r", "4\r"};
    if (result.kind == Result::Kind::Cme && settings_.errors == 0)
        result = kError;
    const auto kind = static_cast<size_t>(result.kind);
    const bool numbered = result.kind == Result::Kind::Cms || result.kind == Result::Kind::Cme;
    if (!settings_.quiet) {
        if (numbered)
            answer(kWords[kind] + QByteArray::number(result.number));
        else if (settings_.verbose)
            answer(kWords[kind]);
        else
            write(faults_.garbage ? noise() : QByteArray(kDigits[kind]));
    }
    flushNotices();
}

void SimulatedModem::answer(const QByteArray &text)
{
    if (faults_.garbage)
        write(noise());
    else
        write((settings_.verbose ? "\r\n" : "") + text + "\r\n");
}

void SimulatedModem::notify(const QByteArray &text)
{
    if (notices_.size() == kMostNotices)
        notices_.erase(notices_.begin());
    notices_.push_back(text);
    flushNotices();
}

void SimulatedModem::flushNotices()
{
    // Not into the middle of a command, a text or a submission; with mode 0 not at all.
    if (state_ != State::Command || !line_.isEmpty() || settings_.cnmi[0] == 0)
        return;
    for (const QByteArray &notice : std::exchange(notices_, {}))
        answer(notice);
}

void SimulatedModem::write(const QByteArray &bytes)
{
    if (faults_.mute || !output_)
        return;
    if (faults_.perCharacter <= 0ms && slow_.isEmpty()) {
        output_(bytes);
        return;
    }
    slow_ += bytes.left(kMostSlowOutput - slow_.size());
    if (!pacer_->isEnabled() && faults_.perCharacter > 0ms) {
        pacer_->setInterval(faults_.perCharacter);
        pacer_->setEnabled(true);
    }
}

void SimulatedModem::writeSlowly()
{
    const bool stillSlow = faults_.perCharacter > 0ms;
    const QByteArray bytes = stillSlow ? slow_.left(1) : slow_;
    slow_.remove(0, bytes.size());
    if (slow_.isEmpty())
        pacer_->setEnabled(false);
    if (!bytes.isEmpty() && output_)
        output_(bytes);
}

SimulatedModem::Result SimulatedModem::askText(const QString &recipient, Purpose purpose)
{
    if (purpose == Purpose::Submit && faults_.noPrompt.take())
        return kNone;
    recipient_ = recipient;
    purpose_ = purpose;
    text_.clear();
    write("\r\n> ");
    if (purpose == Purpose::Submit && faults_.dropAtPrompt.take()) {
        if (lineDrop_)
            lineDrop_();
        return kNone;
    }
    state_ = State::Text;
    return kNone;
}

void SimulatedModem::endText()
{
    state_ = State::Command;
    if (text_.size() > kLongestText) {
        finish(cms(kInvalidTextParameter));
        return;
    }
    if (purpose_ == Purpose::Submit) {
        state_ = State::Submitting;
        submission_->setInterval(submissionTime_);
        submission_->setEnabled(true);
        return;
    }
    MessageStore &store = memory(memories_[1]);
    MessageRecord record{.kind = MessageRecord::Kind::Unsent,
                         .number = recipient_,
                         .text = text_,
                         .firstOctet = settings_.csmp[0]};
    const auto index = hasRoom(store) ? store.add(record) : std::nullopt;
    if (index)
        answer("+CMGW: " + QByteArray::number(*index));
    finish(index ? kOk : cms(kMemoryFull));
}

void SimulatedModem::finishSubmission()
{
    constexpr int kReportRequested = 0x20;
    submission_->setEnabled(false);
    state_ = State::Command;
    if (faults_.refuseSubmission.take()) {
        finish(faults_.refusalNumber == 0 ? kError : cms(faults_.refusalNumber));
    } else {
        const quint8 reference = nextReference_++;
        if ((settings_.csmp[0] & kReportRequested) != 0)
            network_.sendWithReport(ownNumber_, recipient_, text_, reference);
        else
            network_.send(ownNumber_, recipient_, text_);
        if (faults_.loseAnswer.take()) {
            flushNotices();
        } else {
            answer("+CMGS: " + QByteArray::number(reference));
            finish(kOk);
        }
    }
    takeInput();
}

bool SimulatedModem::takeMessage(const SmsMessage &message)
{
    MessageStore &store = memory(memories_[2]);
    if (!hasRoom(store))
        return false;
    const auto index =
        store.add({.number = message.from, .text = message.text, .stamp = message.sentAt});
    if (settings_.cnmi[1] == 1)
        notify("+CMTI: \"" + memories_[2] + "\"," + QByteArray::number(*index));
    return true;
}

bool SimulatedModem::takeReport(const SmsReport &report)
{
    if (settings_.cnmi[3] != 2)
        return true;
    MessageStore &store = memory(memories_[2]);
    if (!hasRoom(store))
        return false;
    const auto index = store.add({.kind = MessageRecord::Kind::Report,
                                  .number = report.recipient,
                                  .stamp = report.sentAt,
                                  .settledAt = report.settledAt,
                                  .reference = report.reference,
                                  .status = report.status,
                                  .firstOctet = 6});
    notify("+CDSI: \"" + memories_[2] + "\"," + QByteArray::number(*index));
    return true;
}

void SimulatedModem::offerRoom()
{
    network_.memoryAvailable(ownNumber_);
}

QByteArray SimulatedModem::counts(const QByteArray &name)
{
    const MessageStore &store = memory(name);
    const int used = faults_.storeFull ? store.capacity() : store.used();
    return QByteArray::number(used) + ',' + QByteArray::number(store.capacity());
}
