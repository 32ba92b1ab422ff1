#include "support/Doubles.h"

#include <QFileInfo>

#include <gtest/gtest.h>

#include <utility>

ScriptedOperator::~ScriptedOperator()
{
    expectAllAsked();
}

void ScriptedOperator::expectAllAsked()
{
    for (const Line &line : std::exchange(script_, {})) {
        ADD_FAILURE() << "Never asked: " << line.expected.toStdString();
    }
}

void ScriptedOperator::answers(const QString &text, milliseconds openFor, const QString &title)
{
    script_.push_back({Kind::Note, text, title, Answer::Ok, {}, openFor});
}

void ScriptedOperator::answers(const QString &text, Answer answer, milliseconds openFor,
                               const QString &title)
{
    script_.push_back({Kind::Question, text, title, answer, {}, openFor});
}

void ScriptedOperator::types(const QString &title, const QString &answer, milliseconds openFor,
                             const QString &text)
{
    script_.push_back({Kind::Input, text, title, Answer::Ok, answer, openFor});
}

void ScriptedOperator::picksFile(const QString &startFrom, const QString &filter,
                                 const QString &path)
{
    script_.push_back({Kind::File, startFrom, filter, Answer::Ok, path});
}

void ScriptedOperator::picksNewFile(const QString &suggestedName, const QString &filter,
                                    const QString &path)
{
    script_.push_back({Kind::NewFile, u'/' + suggestedName, filter, Answer::Ok, path});
}

std::optional<ScriptedOperator::Line> ScriptedOperator::next(Kind kind, const QString &says,
                                                             const QString &title)
{
    if (isPatient) {
        return {};
    }
    const auto told = [](Kind given, const QString &text, const QString &name) {
        static const char *const kKinds[] = {"Note", "Question", "Input", "File", "NewFile"};
        return kKinds[static_cast<int>(given)] + (" \"" + name.toStdString()) +
               "\": " + text.toStdString();
    };
    if (script_.empty()) {
        ADD_FAILURE() << "Not expected: " << told(kind, says, title);
        return {};
    }
    const Line &expected = script_.front();
    const bool holds = kind == Kind::NewFile ? says.endsWith(expected.expected)
                       : wantsWholeTexts     ? says == expected.expected
                                             : says.contains(expected.expected);
    if (expected.kind != kind || expected.title != title || !holds) {
        ADD_FAILURE() << "Not expected: " << told(kind, says, title) << "\nbut "
                      << told(expected.kind, expected.expected, expected.title);
        return {};
    }
    const Line line = expected;
    script_.pop_front();
    if (line.openFor > 0ms) {
        const int before = withdrawals_;
        for (const milliseconds end = clock_.elapsed() + line.openFor;
             clock_.elapsed() < end && before == withdrawals_;) {
            clock_.yield(end - clock_.elapsed());
        }
    }
    return line;
}

Answer ScriptedOperator::messageBox(const QString &text, const QString &title, Buttons buttons)
{
    if (isPatient) {
        return Answer::Ok;
    }
    if (habit) {
        return habit(text);
    }
    texts.append(text);
    const auto line = next(buttons == Buttons::Ok ? Kind::Note : Kind::Question, text, title);
    return line ? line->answer : Answer::Cancel;
}

QString ScriptedOperator::inputBox(const QString &prompt, const QString &title,
                                   const QString &preset)
{
    lastPrompt = prompt;
    lastPreset = preset;
    if (typing) {
        return typing(title);
    }
    const QString text = preset.isEmpty() ? prompt : prompt + u'\n' + preset;
    const auto line = next(Kind::Input, text, title);
    return line ? line->typed : QString();
}

QString ScriptedOperator::textBox(const QString &prompt, const QString &title,
                                  const QString &preset,
                                  const std::function<TextNotes(const QString &)> &notes)
{
    const QString text = inputBox(prompt, title, preset);
    lastNotes = notes(text);
    return text;
}

QString ScriptedOperator::chooseFile(const QString &startFrom, const QString &filter)
{
    if (browsing) {
        return browsing();
    }
    const auto line = next(Kind::File, startFrom, filter);
    return line ? line->typed : QString();
}

QString ScriptedOperator::chooseNewFile(const QString &startFrom, const QString &filter)
{
    const auto line = next(Kind::NewFile, QFileInfo(startFrom).absoluteFilePath(), filter);
    return line ? line->typed : QString();
}
