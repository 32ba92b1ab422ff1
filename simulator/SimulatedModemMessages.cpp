#include "simulator/MessageLines.h"
#include "simulator/SimulatedModem.h"

#include <QByteArrayList>

#include <algorithm>
#include <string_view>

namespace {

// Numbers of "+CMS ERROR", 3GPP TS 27.005, 3.2.5.
constexpr int kNotSupported = 303;
constexpr int kInvalidTextParameter = 305;
constexpr int kInvalidIndex = 321;
constexpr int kMemoryFull = 322;

using Kind = AtCommand::Kind;

bool isListWord(const QByteArray &word)
{
    static const QByteArrayList words{"ALL", "REC UNREAD", "REC READ", "STO UNSENT", "STO SENT"};
    return words.contains(word);
}

} // namespace

SimulatedModem::Result SimulatedModem::cpms(const AtCommand &command)
{
    QList<QByteArray> names{"SM", "ME", "MT"};
    names.removeIf([&](const QByteArray &name) {
        return (faults_.refuseMt && name == "MT") || (faults_.refuseSm && name == "SM");
    });
    if (command.kind == Kind::Test) {
        const QByteArray list = "(\"" + names.join("\",\"") + "\")";
        answer("+CPMS: " + list + ',' + list + ',' + list);
        return kOk;
    }
    auto memories = memories_;
    if (command.kind == Kind::Set) {
        const auto values = atValues(command.arguments);
        if (values.empty() || values.size() > memories.size()) {
            return cms(kInvalidTextParameter);
        }
        for (size_t i = 0; i < values.size(); ++i) {
            memories[i] = values[i].text.toUpper();
            if (!names.contains(memories[i])) {
                return cms(kNotSupported);
            }
        }
        memories_ = memories;
    }
    QByteArrayList parts;
    for (const QByteArray &name : memories) {
        parts += (command.kind == Kind::Read ? '"' + name + "\"," : QByteArray()) + counts(name);
    }
    answer("+CPMS: " + parts.join(','));
    return kOk;
}

SimulatedModem::Result SimulatedModem::cmgl(const AtCommand &command)
{
    if (command.kind == Kind::Test) {
        answer("+CMGL: (\"REC UNREAD\",\"REC READ\",\"STO UNSENT\",\"STO SENT\",\"ALL\")");
        return kOk;
    }
    const auto values = atValues(command.arguments);
    const QByteArray word = values.empty() ? "REC UNREAD" : values[0].text.toUpper();
    if (command.kind == Kind::Read || !isListWord(word)) {
        return cms(kInvalidTextParameter);
    }

    MessageStore &store = memory(memories_[0]);
    QByteArrayList entries;
    for (const auto &[index, record] : store.records()) {
        if (word != "ALL" && word != record.statusWord()) {
            continue;
        }
        if (!settings_.text) {
            // What stands in a PDU is nothing to a reader of texts.
            entries += "+CMGL: " + namedPlace(index) + ",1,,24\r\n0791" + record.text.toHex();
            continue;
        }
        entries +=
            listLines(namedPlace(index), record, {listsDetails(record), faults_.phoneBookName});
        if (record.kind != MessageRecord::Kind::Report && faults_.lineInRecord.take()) {
            entries.back().replace(entries.back().indexOf("\r\n"), 2,
                                   "\r\n\r\n" + faults_.unsolicited + "\r\n\r\n");
        }
        store.find(index)->read = true;
    }
    if (!entries.isEmpty()) {
        answer(listing(entries));
    }
    return kOk;
}

QByteArray SimulatedModem::listing(const QByteArrayList &entries)
{
    const QByteArray whole = entries.join("\r\n");
    if (!faults_.lineInListing.take()) {
        return whole;
    }
    QByteArray lines = whole;
    qsizetype end = -1;
    for (int line = 0; line <= linesBefore_; ++line) {
        end = lines.indexOf("\r\n", end + 1);
    }
    linesBefore_ = end < 0 ? 0 : linesBefore_ + 1;
    return end < 0 ? lines : lines.insert(end, "\r\n\r\n" + faults_.unsolicited + "\r\n");
}

SimulatedModem::Result SimulatedModem::cmgr(const AtCommand &command)
{
    if (command.kind == Kind::Test) {
        return kOk;
    }
    MessageRecord *record = recordOf(command);
    if (!record) {
        return cms(kInvalidIndex);
    }
    answer(readLines(*record, listsDetails(*record), serviceCentre_));
    record->read = true;
    return kOk;
}

SimulatedModem::Result SimulatedModem::cmgd(const AtCommand &command)
{
    MessageStore &store = memory(memories_[0]);
    if (command.kind == Kind::Test) {
        QByteArrayList indexes;
        for (const auto &entry : store.records()) {
            indexes += QByteArray::number(placeNumber(entry.first));
        }
        answer("+CMGD: (" + indexes.join(',') + "),(0-4)");
        return kOk;
    }
    if (faults_.refuseDeletion.take()) {
        return kError;
    }
    const auto values = atValues(command.arguments);
    const int flag = values.size() > 1 ? values[1].number().value_or(-1) : 0;
    if (flag < 0 || flag > 4) {
        return cms(kInvalidTextParameter);
    }
    if (flag == 0 && faults_.silentDeletion.take()) {
        store.remove(values.empty() ? 0 : placeOf(values[0]));
        return kNone;
    }
    if (flag == 0) {
        return !values.empty() && store.remove(placeOf(values[0])) ? kOk : cms(kInvalidIndex);
    }
    // 1 the read ones, 2 those sent from here too (this modem keeps none), 3 the unsent too, 4 all.
    store.removeIf([flag](const MessageRecord &record) {
        const QByteArray word = record.statusWord();
        return flag == 4 || word == "REC READ" || (flag == 3 && word == "STO UNSENT");
    });
    return kOk;
}

bool SimulatedModem::listsDetails(const MessageRecord &record) const
{
    return settings_.details == 1 ||
           (record.kind == MessageRecord::Kind::Report && faults_.recipientInReports);
}

MessageRecord *SimulatedModem::recordOf(const AtCommand &command)
{
    const auto values = atValues(command.arguments);
    if (command.kind != Kind::Set || values.empty()) {
        return nullptr;
    }
    return memory(memories_[0]).find(placeOf(values[0]));
}

int SimulatedModem::placeOf(const AtValue &number) const
{
    const auto place = number.number();
    return place ? *place - faults_.firstPlace + 1 : 0;
}

QByteArray SimulatedModem::namedPlace(int index) const
{
    return QByteArray::number(placeNumber(index) + (faults_.wrongPlace ? 1 : 0));
}

SimulatedModem::Result SimulatedModem::cmgs(const AtCommand &command)
{
    if (command.kind == Kind::Test) {
        return kOk;
    }
    const auto values = atValues(command.arguments);
    static constexpr std::string_view kDialled = "+0123456789*#";
    const auto isDialled = [](char c) { return kDialled.find(c) != std::string_view::npos; };
    if (values.empty() || values[0].text.isEmpty() ||
        !std::ranges::all_of(values[0].text, isDialled)) {
        return cms(kInvalidTextParameter);
    }
    return askText(QString::fromLatin1(values[0].text), Purpose::Submit);
}

SimulatedModem::Result SimulatedModem::cmgw(const AtCommand &command)
{
    if (command.kind == Kind::Test) {
        return kOk;
    }
    const auto values = atValues(command.arguments);
    return askText(values.empty() ? QString() : QString::fromLatin1(values[0].text),
                   Purpose::Store);
}

SimulatedModem::Result SimulatedModem::askText(const QString &recipient, Purpose purpose)
{
    if (purpose == Purpose::Submit && faults_.noPrompt.take()) {
        return kNone;
    }
    recipient_ = recipient;
    purpose_ = purpose;
    text_.clear();
    if (faults_.promptDelay > 0ms) {
        wait(State::Prompting, faults_.promptDelay);
    } else {
        openText();
    }
    return kNone;
}

void SimulatedModem::openText()
{
    state_ = State::Text;
    write(faults_.prompt);
    if (purpose_ == Purpose::Submit && faults_.dropAtPrompt.take()) {
        state_ = State::Command;
        if (lineDrop_) {
            lineDrop_();
        }
    }
}

void SimulatedModem::wait(State state, milliseconds time)
{
    state_ = state;
    busy_->setInterval(time);
    busy_->setEnabled(true);
}

void SimulatedModem::waitIsOver()
{
    busy_->setEnabled(false);
    if (state_ == State::Prompting) {
        openText();
    } else if (state_ == State::Submitting) {
        submit();
    } else {
        answerSubmission();
    }
    takeInput();
}

SimulatedModem::Settings SimulatedModem::forgotten() const
{
    Settings settings;
    settings.text = !faults_.forgetsTextMode;
    return settings;
}

void SimulatedModem::restart(const Settings &settings)
{
    state_ = State::Command;
    busy_->setEnabled(false);
    line_.clear();
    settings_ = settings;
    saved_ = settings;
    input_.clear();
    stopWriting();
}

void SimulatedModem::endText()
{
    state_ = State::Command;
    if (text_.size() > kLongestText) {
        finish(cms(kInvalidTextParameter));
        return;
    }
    if (purpose_ == Purpose::Submit) {
        if (faults_.restart.take()) {
            restart(saved_);
            return;
        }
        if (faults_.restartForgetful.take()) {
            restart(forgotten());
            return;
        }
        if (faults_.lineInSubmission.take()) {
            answer(faults_.unsolicited);
        }
        wait(State::Submitting, submissionTime_);
        return;
    }
    MessageStore &store = memory(memories_[1]);
    MessageRecord record{.kind = MessageRecord::Kind::Unsent,
                         .number = recipient_,
                         .text = text_,
                         .firstOctet = settings_.csmp[0]};
    const auto index = hasRoom(store) ? store.add(record) : std::nullopt;
    if (index) {
        answer("+CMGW: " + namedPlace(*index));
    }
    finish(index ? kOk : cms(kMemoryFull));
}

void SimulatedModem::submit()
{
    constexpr int kReportRequested = 0x20;
    if (faults_.refuseSubmission.take()) {
        state_ = State::Command;
        finish(faults_.refusalNumber == 0 ? kError : cms(faults_.refusalNumber));
        return;
    }
    reference_ = nextReference_++;
    if ((settings_.csmp[0] & kReportRequested) != 0) {
        network_.sendWithReport(ownNumber_, recipient_, text_, reference_);
    } else {
        network_.send(ownNumber_, recipient_, text_);
    }
    if (faults_.answerDelay > 0ms) {
        wait(State::Answering, faults_.answerDelay);
    } else {
        answerSubmission();
    }
}

void SimulatedModem::answerSubmission()
{
    state_ = State::Command;
    const bool isLost = faults_.loseAnswer.take();
    if (!isLost) {
        answer("+CMGS: " + QByteArray::number(reference_));
    }
    finish(isLost ? kNone : kOk);
}

bool SimulatedModem::takeMessage(const SmsMessage &message)
{
    MessageStore &store = memory(memories_[2]);
    if (!hasRoom(store)) {
        if (faults_.tellsFullOnly) {
            notify("^SMMEMFULL: \"" + memories_[2] + '"');
        }
        return false;
    }
    const auto index =
        store.add({.number = message.from, .text = message.text, .stamp = message.sentAt});
    if (settings_.cnmi[1] == 1 && !faults_.tellsFullOnly) {
        tellOf("+CMTI", *index);
    }
    return true;
}

bool SimulatedModem::takeReport(const SmsReport &report)
{
    if (settings_.cnmi[3] != 2) {
        return true;
    }
    MessageStore &store = memory(memories_[2]);
    if (!hasRoom(store)) {
        return false;
    }
    const auto index = store.add({.kind = MessageRecord::Kind::Report,
                                  .number = report.recipient,
                                  .stamp = report.sentAt,
                                  .settledAt = report.settledAt,
                                  .reference = report.reference,
                                  .status = report.status,
                                  .firstOctet = 6});
    tellOf("+CDSI", *index);
    return true;
}

void SimulatedModem::tellOf(const char *name, int index)
{
    notify(QByteArray(name) + ": \"" + memories_[2] + "\"," + namedPlace(index));
}

QByteArray SimulatedModem::counts(const QByteArray &name)
{
    const MessageStore &store = memory(name);
    const int used = faults_.storeFull ? store.capacity() : store.used();
    return QByteArray::number(used) + ',' + QByteArray::number(store.capacity());
}
