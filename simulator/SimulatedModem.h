#pragma once

#include "simulator/AtLine.h"
#include "simulator/MessageStore.h"
#include "simulator/ModemFaults.h"
#include "simulator/SmsNetwork.h"

#include <QByteArrayList>

#include <array>
#include <deque>

/// A GSM modem with a SIM card, seen from its line: bytes in, bytes out. It speaks the text mode
/// of 3GPP TS 27.005 with the commands of 27.007 that a message program needs, framed as in
/// ITU-T V.250. PDU mode is refused.
///
/// Texts pass as raw codes of the GSM alphabet in both directions, without any conversion.
/// The answer to a submission comes after the submission time; everything else at once. What the
/// PC writes while a submission is under way waits until its end.
class SimulatedModem {
public:
    /// The clock and the network must outlive the modem.
    SimulatedModem(Clock &clock, SmsNetwork &network, const QString &ownNumber);
    ~SimulatedModem();
    SimulatedModem(const SimulatedModem &) = delete;
    SimulatedModem &operator=(const SimulatedModem &) = delete;

    /// Characters from the PC, in pieces of any size.
    void receive(const QByteArray &bytes);
    /// Takes the characters for the PC. It is called from inside receive() and from timers.
    void setOutput(std::function<void(const QByteArray &)> output);
    /// Called when ModemFaults::dropAtPrompt strikes: the owner cuts the line.
    void setLineDrop(std::function<void()> lineDrop) { lineDrop_ = std::move(lineDrop); }
    /// The PC has gone: half a command, a text without its end and characters not yet on the
    /// line are forgotten. Settings and storage stay.
    void lineClosed();
    /// The modem starts anew by itself, with the settings that "AT&W" stored or with the factory's.
    void restart(bool forgets) { restart(forgets ? forgotten() : saved_); }
    /// Puts characters of any kind on the line, as a disturbance would.
    void inject(const QByteArray &bytes) { write(bytes); }

    const QString &ownNumber() const { return ownNumber_; }
    ModemFaults &faults() { return faults_; }
    /// The SIM's storage, which "SM" and "MT" both name.
    MessageStore &store() { return sim_; }
    /// Time from the end of a text to its answer, at least 1 ms; 2 seconds at first.
    void setSubmissionTime(milliseconds time) { submissionTime_ = time; }
    /// The reference of the next message; 0 follows on 255.
    void setNextReference(quint8 reference) { nextReference_ = reference; }

private:
    static constexpr qsizetype kLongestText = 160;

    enum class State { Command, Prompting, Text, Submitting, Answering };
    enum class Purpose { Submit, Store };

    struct Settings {
        bool echo = true;
        bool quiet = false;
        bool verbose = true;
        bool text = true;
        int errors = 0;
        int details = 0;
        int clip = 0;
        std::array<int, 5> cnmi{};
        std::array<int, 4> csmp{17, 167, 0, 0};
    };

    struct Result {
        enum class Kind { Ok, Error, Cms, Cme, None };
        Kind kind = Kind::Ok;
        int number = 0;
    };
    static Result cms(int number) { return {Result::Kind::Cms, number}; }
    static Result cme(int number) { return {Result::Kind::Cme, number}; }
    static constexpr Result kOk{Result::Kind::Ok, 0};
    static constexpr Result kError{Result::Kind::Error, 0};
    static constexpr Result kNone{Result::Kind::None, 0};

    using Handler = Result (SimulatedModem::*)(const AtCommand &);
    struct Row {
        const char *name;
        Handler handler;
    };
    static const Row kRows[];
    struct Fixed {
        const char *name;
        AtCommand::Kind kind;
        const char *answer;
    };
    static const Fixed kFixed[];

    // The line (SimulatedModem.cpp)
    void takeInput();
    void takeCommandByte(char byte);
    void takeTextByte(char byte);
    void echo(char byte);
    void execute(const QByteArray &line);
    Result run(const AtCommand &command);
    void finish(Result result);
    void answer(const QByteArray &text);
    void notify(const QByteArray &text);
    void flushNotices();
    void write(const QByteArray &bytes);
    void writeWaiting();
    void stopWriting();

    // Settings and answers (SimulatedModemCommands.cpp)
    Result factorySettings(const AtCommand &command);
    Result restoreSettings(const AtCommand &command);
    Result storeSettings(const AtCommand &command);
    Result setEcho(const AtCommand &command);
    Result setQuiet(const AtCommand &command);
    Result setVerbose(const AtCommand &command);
    Result fixed(const AtCommand &command);
    Result number(const AtCommand &command, int &value, int most);
    Result cmee(const AtCommand &command);
    Result clip(const AtCommand &command);
    Result csdh(const AtCommand &command);
    Result cmgf(const AtCommand &command);
    Result cscs(const AtCommand &command);
    Result csca(const AtCommand &command);
    Result csmp(const AtCommand &command);
    Result cnmi(const AtCommand &command);

    // Messages (SimulatedModemMessages.cpp)
    Result cpms(const AtCommand &command);
    Result cmgl(const AtCommand &command);
    Result cmgr(const AtCommand &command);
    Result cmgd(const AtCommand &command);
    Result cmgs(const AtCommand &command);
    Result cmgw(const AtCommand &command);
    bool listsDetails(const MessageRecord &record) const;
    MessageRecord *recordOf(const AtCommand &command);
    Result askText(const QString &recipient, Purpose purpose);
    void openText();
    void endText();
    void wait(State state, milliseconds time);
    void waitIsOver();
    void submit();
    void answerSubmission();
    Settings forgotten() const;
    void restart(const Settings &settings);
    QByteArray listing(const QByteArrayList &entries);
    void tellOf(const char *name, int index);
    /// The number by which the line knows a place of the store, and the other way round.
    int placeNumber(int index) const { return index + faults_.firstPlace - 1; }
    int placeOf(const AtValue &number) const;
    QByteArray namedPlace(int index) const;
    bool takeMessage(const SmsMessage &message);
    bool takeReport(const SmsReport &report);
    bool hasRoom(const MessageStore &store) const { return !faults_.storeFull && !store.isFull(); }
    MessageStore &memory(const QByteArray &name) { return name == "ME" ? phone_ : sim_; }
    QByteArray counts(const QByteArray &name);

    SmsNetwork &network_;
    QString ownNumber_;
    ModemFaults faults_;
    std::function<void(const QByteArray &)> output_;
    std::function<void()> lineDrop_;
    std::unique_ptr<Timer> busy_;
    std::unique_ptr<Timer> pacer_;
    milliseconds submissionTime_ = 2s;

    Settings settings_;
    Settings saved_;
    QByteArray serviceCentre_ = "+4790000000";
    MessageStore sim_{20};
    MessageStore phone_{50};
    std::array<QByteArray, 3> memories_{"SM", "SM", "SM"};
    quint8 nextReference_ = 0;
    quint8 reference_ = 0; ///< of the message that went out last

    State state_ = State::Command;
    Purpose purpose_ = Purpose::Submit;
    bool taking_ = false;
    QByteArray input_;
    QByteArray line_;
    QByteArray text_;
    int linesBefore_ = 0; ///< the next unsolicited line of a listing
    QString recipient_;
    QByteArray waiting_;
    std::deque<QByteArray> notices_;
};
