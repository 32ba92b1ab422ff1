#pragma once

#include "modem/ModemView.h"
#include "platform/Host.h"
#include "platform/Operator.h"
#include "platform/SettingsStore.h"
#include "support/VirtualClock.h"

#include <QMap>
#include <QSet>

#include <deque>

/// The person at the screen, by a script that says what each box must be. A box that no script line
/// waits for fails the test and is answered by Cancel; so does a script line that was never needed,
/// at the end.
class ScriptedOperator : public Operator {
public:
    explicit ScriptedOperator(VirtualClock &clock) : clock_(clock) {}
    ~ScriptedOperator() override;

    /// The next box must hold this text, have OK alone and bear this title, the program's own when
    /// it is empty. It is closed behind openFor.
    void answers(const QString &text, milliseconds openFor = 0ms, const QString &title = {});
    /// The same for a question, with OK and Cancel.
    void answers(const QString &text, Answer answer, milliseconds openFor = 0ms,
                 const QString &title = {});
    /// The next input box must have this title and hold this text; an empty answer stands for
    /// Cancel.
    void types(const QString &title, const QString &answer, milliseconds openFor = 0ms,
               const QString &text = {});
    /// The next question for a file must start from this one and have this filter; an empty path
    /// stands for Cancel.
    void picksFile(const QString &startFrom, const QString &filter, const QString &path);
    /// The next question for a file to write must suggest this name and have this filter; an empty
    /// path stands for Cancel.
    void picksNewFile(const QString &suggestedName, const QString &filter, const QString &path);

    /// Fails the test for each line of the script that is still waited for, and forgets it.
    void expectAllAsked();

    Answer messageBox(const QString &text, const QString &title, Buttons buttons) override;
    QString inputBox(const QString &prompt, const QString &title, const QString &preset) override;
    /// Taken for an input box; the notes on what is typed stand in lastNotes.
    QString textBox(const QString &prompt, const QString &title, const QString &preset,
                    const std::function<TextNotes(const QString &)> &notes) override;
    QString chooseFile(const QString &startFrom, const QString &filter) override;
    QString chooseNewFile(const QString &startFrom, const QString &filter) override;
    void withdraw() override { ++withdrawals_; }
    void beep() override { ++beeps; }
    void setBusy(const void *who, bool busy) override
    {
        busy ? (void)busy_.insert(who) : (void)busy_.remove(who);
    }
    bool isBusy() const { return !busy_.isEmpty(); }

    bool wantsWholeTexts = false; ///< what a box must hold is all that it holds
    bool isPatient = false;       ///< closes every box, script or not
    /// Instead of a script: what this person does at every box, types into every input box, and
    /// picks whenever a file is asked for.
    std::function<Answer(const QString &text)> habit;
    std::function<QString(const QString &title)> typing;
    std::function<QString()> browsing;
    QStringList texts; ///< of all boxes, in order
    QString lastPrompt;
    QString lastPreset;
    TextNotes lastNotes;
    int beeps = 0;

private:
    enum class Kind { Note, Question, Input, File, NewFile };
    struct Line {
        Kind kind;
        QString expected; ///< a part of what the box says
        QString title;
        Answer answer = Answer::Ok;
        QString typed = {};
        milliseconds openFor = 0ms;
    };
    std::optional<Line> next(Kind kind, const QString &says, const QString &title);

    VirtualClock &clock_;
    int withdrawals_ = 0;
    QSet<const void *> busy_;
    std::deque<Line> script_;
};

class FakeHost : public Host {
public:
    QString userName() const override { return user; }
    QString computerName() const override { return computer; }
    QString dateFormat() const override { return format; }
    QString comPortDevice(int number) const override { return u"COM%1"_qs.arg(number); }
    bool startSystemInformation() const override { return hasSystemInformation; }
    std::vector<ComPort> comPorts() const override
    {
        return {{1, u"ttyS0"_qs}, {7, u"ttyUSB0"_qs, u"GSM Stick"_qs}};
    }
    void keepComPort(const ComPort &port) const override { kept += QString::number(port.number); }

    mutable QStringList kept; ///< numbers of ports

    QString user = QStringLiteral("Hovedoperatør");
    QString computer = QStringLiteral("KONTOR-1");
    QString format = QStringLiteral("dd/MM/yyyy");
    bool hasSystemInformation = false;
};

class MemorySettings : public SettingsStore {
public:
    QString get(const QString &key, const QString &byDefault) const override
    {
        return values.value(key.toLower(), byDefault);
    }
    void save(const QString &key, const QString &value) override
    {
        if (!isLocked) {
            values[key.toLower()] = value;
            saved.append(key);
        }
    }
    bool isLocked = false;         ///< nothing is saved any more
    QMap<QString, QString> values; ///< by lower-case key
    QStringList saved;             ///< keys in the order of saving
};

/// What the modem side showed last, and all that it wrote.
class RecordingView : public ModemView {
public:
    void setPanel(int number, const QString &text) override
    {
        panels[number] = text;
        panelHistory.append(text);
    }
    void appendStatusBox(const QString &text) override { statusBox += text; }
    void setTerminal(const QString &text) override { terminal = text; }
    void showNetworkControls(const NetworkControls &shown) override { controls = shown; }
    void tickPort(PortMenuEntry entry) override { tick = entry; }
    void setOtherPortCaption(const QString &caption) override { otherCaption = caption; }
    QString hostName() const override { return host; }
    QString port() const override { return portText; }
    void setHostName(const QString &text) override { host = text; }
    void setPort(const QString &text) override { portText = text; }

    QMap<int, QString> panels;
    QStringList panelHistory;
    QString statusBox;
    QString terminal;
    NetworkControls controls;
    PortMenuEntry tick = PortMenuEntry::Untouched;
    QString otherCaption;
    QString host = QStringLiteral("127.0.0.1");
    QString portText = QStringLiteral("23");
};
