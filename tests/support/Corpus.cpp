#include "support/Corpus.h"

#include "data/Connection.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <functional>
#include <stdexcept>
#include <utility>

namespace {

/// Line ends and other controls as in C++, and without the empty values at the end.
std::string told(const QString &row)
{
    QString result;
    for (const QChar character : row) {
        const int code = character.unicode();
        result += character == u'\r'   ? u"\\r"_qs
                  : character == u'\n' ? u"\\n"_qs
                  : code < 0x20        ? u"\\x%1"_qs.arg(code, 2, 16, QChar(u'0'))
                                       : QString(character);
    }
    while (result.endsWith(u'|')) {
        result.chop(1);
    }
    return result.toStdString();
}

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
                last.ready.isEmpty() && last.records.isEmpty()) {
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
            {QStringLiteral("country"), [&] { now.country = rest; }},
            {QStringLiteral("dates"), [&] { now.dates = rest; }},
            {QStringLiteral("refuses"), [&] { now.refuses = rest; }},
            {QStringLiteral("from"), [&] { now.from = bytesOf(rest); }},
            {QStringLiteral("says"), [&] { addMessage(listed(now.from, bytesOf(rest)), true); }},
            {QStringLiteral("record"), [&] { addMessage(bytesOf(rest), false); }},
            {QStringLiteral(">"), [&] { add(Kind::Writes, withEnd(bytesOf(rest))); }},
            {QStringLiteral("<"), [&] { add(Kind::Says, bytesOf(rest)); }},
            {QStringLiteral("@"), [&] { add(Kind::Waits, {}, timeOf(rest)); }},
            {QStringLiteral("within"), [&] { add(Kind::Within, {}, timeOf(rest)); }},
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
    /// The modem brings it unasked, and deletes it when it is told to.
    void addMessage(const QByteArray &record, bool isFiled)
    {
        add(Kind::Says, "\r\n" + record + "\r\nOK\r\n");
        add(Kind::Writes, "AT+CMGD=" + QByteArray::number(corpusIndex(record)) + '\r');
        add(Kind::Says, "\r\nOK\r\n");
        result_.back().records += record;
        result_.back().filed += isFiled ? 1 : 0;
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

const QMap<QString, QString> &corpusColumns()
{
    static const QMap<QString, QString> kColumns = {
        {u"TBLbrukere"_qs, u"KeyBruker,KeyNummer,Status,Gyldig fra,FraTid,Gyldig til,TilTid,"
                           "Konto,Saldo"_qs},
        {u"Katalog"_qs, u"Bruker,BrukerKort,Etternavn,Fornavn"_qs},
        {u"LOGGData"_qs, u"KeyNummer,KeyUser,Dato,Etternavn,Fornavn"_qs},
        {u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet,Admin,Admin1,Admin2,Admin3,Admin4,"
                         "Admin5,Eget_Nummer,Beskrivelse"_qs},
        {u"Modem"_qs, u"IMEICODE,ModemManufacturer,ModemName,ModemStatus,ModemOwner"_qs},
        {u"SMS_Sent"_qs,
         u"TilNummer,SMS_Text,CMGS,TimeSent,TimeReceived,ReceivedStatus,DatoLNG"_qs},
        {u"SMS_Received"_qs, u"FraNummer,FraNummerKort,Etternavn,Fornavn,Dato,SMS_Text"_qs}};
    return kColumns;
}

CorpusTables corpusTables(Connection &connection)
{
    CorpusTables result;
    for (const auto &[table, columns] : corpusColumns().asKeyValueRange()) {
        auto &rows = result[table.toStdString()];
        const QString names = QString(columns).replace(u","_qs, u"],["_qs);
        connection.run(u"SELECT [%1] FROM %2 ORDER BY rowid"_qs.arg(names, table), {},
                       [&](const QVariantList &row) {
                           rows.push_back(told(QVariant(row).toStringList().join(u'|')));
                       });
    }
    return result;
}

CorpusTables corpusTables(CorpusTables before, const QMap<QString, QStringList> &named)
{
    for (const auto &[table, rows] : named.asKeyValueRange()) {
        auto &expected = before[table.toStdString()];
        expected.clear();
        for (const QString &row : rows) {
            expected.push_back(told(row));
        }
    }
    return before;
}

void fillCorpusTable(Connection &connection, const QString &table, const QStringList &rows)
{
    const QStringList columns = corpusColumns()[table].split(u',');
    connection.run(u"DELETE FROM "_qs + table);
    for (const QString &row : rows) {
        const QStringList given = row.split(u'|');
        QVariantList values(given.begin(), given.end());
        values.resize(columns.size()); // nothing there, whatever the file would supply
        connection.run(
            u"INSERT INTO %1 ([%2]) VALUES (%3)"_qs.arg(
                table, columns.join(u"],["_qs), QStringList(columns.size(), u"?"_qs).join(u',')),
            values);
    }
}

std::vector<Transcript> transcripts(const QString &folder)
{
    std::vector<Transcript> result;
    const QDir files(QStringLiteral(LUKORA_CORPUS "/") + folder);
    for (const QFileInfo &info : files.entryInfoList(QDir::Files, QDir::Name)) {
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

QByteArrayList corpusRecords()
{
    QByteArrayList result;
    for (const Transcript &one : transcripts(u"sentences"_qs)) {
        result += one.records;
    }
    return result;
}

QByteArray listed(const QByteArray &sender, const QByteArray &body)
{
    return "+CMGL: 7,\"REC UNREAD\",\"" + sender + "\",,\"26/12/01,12:34:56+04\"\r\n" + body +
           "\r\n";
}

int corpusIndex(const QByteArray &record)
{
    return record.mid(7, record.indexOf(',') - 7).toInt();
}
