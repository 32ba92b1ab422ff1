#pragma once

#include <QString>
#include <QStringList>

#include <functional>

enum class Buttons { Ok, OkCancel };
enum class Answer { Ok, Cancel };

/// What stands below a text while it is written.
struct TextNotes {
    QString count;   ///< how long it is
    QString warning; ///< what will become of it that its writer may not mean; a line for each
};

/// The person at the screen. Every question that the program asks goes through here.
/// All of these block until answered, while timers go on; all throw ProgramEnds when the program
/// ends meanwhile.
class Operator {
public:
    virtual ~Operator() = default;
    /// Closing the box counts as Cancel. An empty title stands for the program's own.
    virtual Answer messageBox(const QString &text, const QString &title, Buttons buttons) = 0;
    /// Empty when cancelled: the callers cannot and must not tell the two apart.
    virtual QString inputBox(const QString &prompt, const QString &title,
                             const QString &preset) = 0;
    /// The same for a text of several lines, which end in "\n"; the notes are asked for anew at
    /// every change and hold nobody back.
    virtual QString textBox(const QString &prompt, const QString &title, const QString &preset,
                            const std::function<TextNotes(const QString &)> &notes) = 0;
    /// Empty when cancelled. The filter is in the form of QFileDialog.
    virtual QString chooseFile(const QString &startFrom, const QString &filter) = 0;
    /// The path to write a file to, with the ending of the filter's first pattern where none was
    /// typed; startFrom holds the folder and the suggested name. Empty when cancelled. Whoever
    /// picks a file that exists has agreed to lose it.
    virtual QString chooseNewFile(const QString &startFrom, const QString &filter) = 0;
    /// Closes whatever stands open, as Cancel would.
    virtual void withdraw() = 0;
    virtual void beep() = 0;
    /// Busy pointer for as long as anybody is busy; repeated calls of the same one don't add up.
    virtual void setBusy(const void *who, bool busy) = 0;

    /// The description of a failure, with OK alone. The same text while its box is still open is
    /// dropped, so that a failing line cannot pile up boxes.
    void showFailure(const QString &description, const QString &title);

private:
    QStringList open_;
};
