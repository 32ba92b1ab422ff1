#include "transcripts/Transcript.h"

#include "support/Corpus.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <functional>
#include <stdexcept>
#include <utility>

namespace {

using Kind = TranscriptStep::Kind;

[[noreturn]] void fail(const std::string &what)
{
    throw std::runtime_error(what);
}

/// Bytes of the line: "\r", "\n", "\\" and "\x1a"; all other characters are their own byte.
QByteArray bytesOf(const QString &text)
{
    QByteArray result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].unicode() > 0x7E) {
            fail("bytes from 127 on are written as \\x7f and so on");
        }
        if (text[i] != u'\\') {
            result += text[i].toLatin1();
            continue;
        }
        static const QString kLetters = QStringLiteral("rn\\");
        const QChar letter = text.mid(++i, 1).isEmpty() ? QChar() : text[i];
        if (const qsizetype known = kLetters.indexOf(letter); known >= 0) {
            result += "\r\n\\"[known];
            continue;
        }
        bool isNumber = letter == u'x' && text.size() > i + 2;
        const int code = isNumber ? text.mid(i + 1, 2).toInt(&isNumber, 16) : 0;
        if (!isNumber) {
            fail("unknown escape");
        }
        result += static_cast<char>(code);
        i += 2;
    }
    return result;
}

std::chrono::milliseconds timeOf(const QString &text)
{
    static const QRegularExpression kTime(QStringLiteral("^([0-9]+)(ms|s|min)$"));
    const QRegularExpressionMatch match = kTime.match(text);
    if (!match.hasMatch()) {
        fail("a time is 500ms, 14s or 2min");
    }
    const QString unit = match.captured(2);
    const int inMilliseconds = unit == u"ms" ? 1 : unit == u"s" ? 1000 : 60000;
    return std::chrono::milliseconds(match.captured(1).toInt() * inMilliseconds);
}

class Reader {
public:
    explicit Reader(QString file) : file_(std::move(file)) {}

    std::vector<Transcript> read(QIODevice &lines)
    {
        while (!lines.atEnd()) {
            ++number_;
            QString line = QString::fromUtf8(lines.readLine());
            while (line.endsWith(u'\n')) {
                line.chop(1);
            }
            try {
                take(line);
            } catch (const std::runtime_error &failure) {
                fail(place() + failure.what());
            }
        }
        endTranscript();
        if (result_.empty()) {
            fail(file_.toStdString() + ": no transcript");
        }
        return std::move(result_);
    }

private:
    std::string place() const
    {
        return (file_ + u':').toStdString() + std::to_string(number_) + ": ";
    }

    void endTranscript()
    {
        if (!result_.empty()) {
            const Transcript &last = result_.back();
            if (last.steps.empty()) {
                fail(last.name + ": nothing happens");
            }
            if (last.after.isEmpty() && last.told.isEmpty() && last.showed.isEmpty() &&
                last.ready.isEmpty()) {
                fail(last.name + ": nothing comes of it");
            }
        }
    }

    void take(const QString &line)
    {
        if (line.startsWith(u"  ") && rows_ != nullptr) {
            rows_->append(line.mid(2));
            return;
        }
        rows_ = nullptr;
        if (line.isEmpty() || line.startsWith(u'#')) {
            return;
        }
        const QString word = line.section(u' ', 0, 0);
        const QString rest = line.mid(word.size() + 1);
        if (word == u"==") {
            endTranscript();
            if (titles_.contains(rest)) {
                fail("the name is used before");
            }
            titles_ += rest;
            result_.emplace_back();
            result_.back().name = place() + rest.toStdString();
            return;
        }
        if (result_.empty()) {
            fail("a name is expected, behind ==");
        }
        directive(word, rest);
    }

    void directive(const QString &word, const QString &rest)
    {
        Transcript &now = result_.back();
        const QMap<QString, std::function<void()>> kDirectives = {
            {QStringLiteral("on"), [&] { chooseLine(rest); }},
            {QStringLiteral("reports"), [&] { now.reports = true; }},
            {QStringLiteral("init"), [&] { now.init = true; }},
            {QStringLiteral(">"), [&] { add(Kind::Writes, withEnd(bytesOf(rest))); }},
            {QStringLiteral("<"), [&] { add(Kind::Says, bytesOf(rest)); }},
            {QStringLiteral("@"), [&] { add(Kind::Waits, {}, timeOf(rest)); }},
            {QStringLiteral("..."), [&] { add(Kind::Anything, {}); }},
            {QStringLiteral("told"), [&] { now.told += rest; }},
            {QStringLiteral("showed"), [&] { now.showed += rest; }},
            {QStringLiteral("ready"), [&] { now.ready = rest; }},
            {QStringLiteral("has"), [&] { rows_ = &table(now.before, rest); }},
            {QStringLiteral("then"), [&] { rows_ = &table(now.after, rest); }}};
        const auto found = kDirectives.find(word);
        if (found == kDirectives.end()) {
            fail("unknown directive " + word.toStdString());
        }
        (*found)();
    }

    void chooseLine(const QString &rest)
    {
        if (rest != u"COM" && rest != u"TCP") {
            fail("a line is COM or TCP");
        }
        result_.back().onCom = rest == u"COM";
        result_.back().onTcp = rest == u"TCP";
    }
    static QByteArray withEnd(const QByteArray &written)
    {
        return written.endsWith('\x1A') ? written : written + '\r';
    }
    void add(Kind kind, const QByteArray &bytes, std::chrono::milliseconds time = {})
    {
        std::vector<TranscriptStep> &steps = result_.back().steps;
        if (kind != Kind::Writes && !steps.empty() && steps.back().kind == Kind::Anything) {
            fail("behind ... the program writes something");
        }
        steps.push_back({kind, number_, bytes, time});
    }
    static QStringList &table(QMap<QString, QStringList> &tables, const QString &name)
    {
        if (!corpusColumns().contains(name) || tables.contains(name)) {
            fail("no such table, or named before: " + name.toStdString());
        }
        return tables[name];
    }

    QString file_;
    int number_ = 0;
    std::vector<Transcript> result_;
    QSet<QString> titles_;
    QStringList *rows_ = nullptr;
};

} // namespace

std::vector<Transcript> transcripts(const QString &folder)
{
    std::vector<Transcript> result;
    for (const QFileInfo &info : QDir(folder).entryInfoList(QDir::Files, QDir::Name)) {
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly)) {
            fail("cannot read " + info.filePath().toStdString());
        }
        for (Transcript &one : Reader(info.fileName()).read(file)) {
            result.push_back(std::move(one));
        }
    }
    return result;
}
