#include "support/Doubles.h"

#include <QFileInfo>

#include <gtest/gtest.h>

ScriptedOperator::~ScriptedOperator()
{
    for (const Line &line : script_) {
        ADD_FAILURE() << "Never asked: " << line.expected.toStdString();
    }
}

void ScriptedOperator::answers(const QString &text, Answer answer, milliseconds openFor)
{
    script_.push_back({Kind::Box, text, answer, {}, openFor});
}

void ScriptedOperator::types(const QString &title, const QString &answer, milliseconds openFor)
{
    script_.push_back({Kind::Input, title, Answer::Ok, answer, openFor});
}

void ScriptedOperator::picksNewFile(const QString &suggestedName, const QString &filter,
                                    const QString &path)
{
    script_.push_back({Kind::NewFile, u'/' + suggestedName + u' ' + filter, Answer::Ok, path, 0ms});
}

std::optional<ScriptedOperator::Line> ScriptedOperator::next(Kind kind, const QString &shownText)
{
    if (isPatient) {
        return {};
    }
    if (script_.empty() || script_.front().kind != kind ||
        !shownText.contains(script_.front().expected)) {
        ADD_FAILURE() << "Not expected: " << shownText.toStdString();
        return {};
    }
    const Line line = script_.front();
    script_.pop_front();
    if (line.openFor > 0ms) {
        clock_.sleep(line.openFor);
    }
    return line;
}

Answer ScriptedOperator::messageBox(const QString &text, const QString &title, Buttons)
{
    if (isPatient) {
        return Answer::Ok;
    }
    texts.append(text);
    titles.append(title);
    const auto line = next(Kind::Box, text);
    return line ? line->answer : Answer::Cancel;
}

QString ScriptedOperator::inputBox(const QString &prompt, const QString &title,
                                   const QString &preset)
{
    lastPrompt = prompt;
    lastPreset = preset;
    const auto line = next(Kind::Input, title);
    return line ? line->typed : QString();
}

QString ScriptedOperator::chooseFile(const QString &, const QString &)
{
    return file_;
}

QString ScriptedOperator::chooseNewFile(const QString &startFrom, const QString &filter)
{
    const auto line = next(Kind::NewFile, QFileInfo(startFrom).absoluteFilePath() + u' ' + filter);
    return line ? line->typed : QString();
}
