#pragma once

#include "platform/Operator.h"

#include <QList>
#include <QSet>
#include <QTranslator>

class Clock;
class QDialog;
class QDialogButtonBox;

/// The person in front of a screen. Questions are window-modal to whatever stands in front, and
/// are waited for on the clock, so that timers go on and the end of the program closes them.
class QtOperator : public Operator {
public:
    explicit QtOperator(Clock &clock);
    ~QtOperator() override;

    Answer messageBox(const QString &text, const QString &title, Buttons buttons) override;
    QString inputBox(const QString &prompt, const QString &title, const QString &preset) override;
    QString chooseFile(const QString &startFrom, const QString &filter) override;
    QString chooseNewFile(const QString &startFrom, const QString &filter) override;
    void withdraw() override;
    void beep() override;
    void setBusy(const void *who, bool busy) override;

    /// Language of the buttons and of Qt's own dialogues, and form of numbers: 47 Norsk, 46 Svensk,
    /// 45 Dansk; Norsk for any other code. Dialogues other than ours stay English where Qt's
    /// translations are not installed.
    void setLanguage(const QString &countryCode);

private:
    /// Opens the dialogue and waits until it is finished; true when it was accepted.
    bool ask(QDialog &dialog);
    QString askForFile(const QString &startFrom, const QString &filter, bool forWriting);
    void captionButtons(QDialogButtonBox &buttons) const;

    Clock &clock_;
    QTranslator qtTexts_;  ///< captions of standard dialogues
    QTranslator ownTexts_; ///< words of our failures
    QString cancelCaption_;
    QList<QDialog *> open_;
    QSet<const void *> busy_;
};
