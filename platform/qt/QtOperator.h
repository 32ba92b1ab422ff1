#pragma once

#include "platform/Operator.h"

#include <QList>
#include <QSet>
#include <QSize>
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
    /// Ctrl+Enter is OK: Enter alone ends a line. The size that it is given lasts for this run.
    QString textBox(const QString &prompt, const QString &title, const QString &preset,
                    const std::function<TextNotes(const QString &)> &notes) override;
    QString chooseFile(const QString &startFrom, const QString &filter) override;
    QString chooseNewFile(const QString &startFrom, const QString &filter) override;
    void withdraw() override;
    void beep() override;
    void setBusy(const void *who, bool busy) override;

    /// Language of our own texts and of the standard dialogues and fields, and form of numbers and
    /// calendars: 47 Norsk, 46 Svensk, 45 Dansk; Norsk for any other code.
    void setLanguage(const QString &countryCode);

private:
    /// Opens the dialogue and waits until it is finished; true when it was accepted.
    bool ask(QDialog &dialog);
    QString askForFile(const QString &startFrom, const QString &filter, bool forWriting);
    void captionButtons(QDialogButtonBox &buttons) const;

    Clock &clock_;
    QTranslator texts_;
    QString cancelCaption_;
    QSize textBoxSize_; ///< none before the first
    QList<QDialog *> open_;
    QSet<const void *> busy_;
};
