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

/// Takes one case as a transcript.
class Reader {
public:
    explicit Reader(const CorpusCase &told)
    {
        now_.name = told.name;
        for (const CorpusLine &line : told.lines) {
            try {
                number_ = line.number;
                rows_ = nullptr;
                directive(line.word, line.rest);
                if (rows_ == nullptr && !line.rows.isEmpty()) {
                    fail("no rows stand below " + line.word.toStdString());
                }
                if (rows_ != nullptr) {
                    *rows_ = line.rows;
                }
            } catch (const std::runtime_error &failure) {
                fail(line.place + failure.what());
            }
        }
        if (now_.steps.empty()) {
            fail(now_.name + ": nothing happens");
        }
        if (now_.after.isEmpty() && now_.told.isEmpty() && now_.showed.isEmpty() &&
            now_.ready.isEmpty() && now_.records.isEmpty()) {
            fail(now_.name + ": nothing comes of it");
        }
    }
    Transcript read() { return std::move(now_); }

private:
    void directive(const QString &word, const QString &rest)
    {
        const QMap<QString, std::function<void()>> kDirectives = {
            {QStringLiteral("on"), [&] { chooseLine(rest); }},
            {QStringLiteral("reports"), [&] { now_.reports = true; }},
            {QStringLiteral("init"), [&] { now_.init = true; }},
            {QStringLiteral("country"), [&] { now_.country = rest; }},
            {QStringLiteral("dates"), [&] { now_.dates = rest; }},
            {QStringLiteral("refuses"), [&] { now_.refuses = rest; }},
            {QStringLiteral("from"), [&] { now_.from = bytesOf(rest); }},
            {QStringLiteral("says"), [&] { addMessage(listed(now_.from, bytesOf(rest)), true); }},
            {QStringLiteral("record"), [&] { addMessage(bytesOf(rest), false); }},
            {QStringLiteral(">"), [&] { add(Kind::Writes, withEnd(bytesOf(rest))); }},
            {QStringLiteral("<"), [&] { add(Kind::Says, bytesOf(rest)); }},
            {QStringLiteral("@"), [&] { add(Kind::Waits, {}, corpusTime(rest)); }},
            {QStringLiteral("within"), [&] { add(Kind::Within, {}, corpusTime(rest)); }},
            {QStringLiteral("..."), [&] { add(Kind::Anything, {}); }},
            {QStringLiteral("told"), [&] { now_.told += rest; }},
            {QStringLiteral("showed"), [&] { now_.showed += rest; }},
            {QStringLiteral("ready"), [&] { now_.ready = rest; }},
            {QStringLiteral("has"), [&] { rows_ = &table(now_.before, rest); }},
            {QStringLiteral("then"), [&] { rows_ = &table(now_.after, rest); }}};
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
        now_.onCom = rest == u"COM";
        now_.onTcp = rest == u"TCP";
    }
    static QByteArray withEnd(const QByteArray &written)
    {
        return written.endsWith('\x1A') ? written : written + '\r';
    }
    void add(Kind kind, const QByteArray &bytes, std::chrono::milliseconds time = {})
    {
        std::vector<TranscriptStep> &steps = now_.steps;
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
        now_.records += record;
        now_.filed += isFiled ? 1 : 0;
    }
    static QStringList &table(QMap<QString, QStringList> &tables, const QString &name)
    {
        if (!corpusColumns().contains(name) || tables.contains(name)) {
            fail("no such table, or named before: " + name.toStdString());
        }
        return tables[name];
    }

    Transcript now_;
    int number_ = 0; ///< of the line that is read
    QStringList *rows_ = nullptr;
};

} // namespace

const QMap<QString, QString> &corpusColumns()
{
    static const QMap<QString, QString> kColumns = {
        {u"TBLbrukere"_qs, u"KeyBruker,KeyNummer,Status,Gyldig fra,FraTid,Gyldig til,TilTid,"
                           "Konto,Saldo"_qs},
        {u"NYEbrukere"_qs, u"Bruker,KeyNummer,Status,Gyldig fra,FraTid,Gyldig til,TilTid,"
                           "Konto,Saldo,Etternavn,Fornavn"_qs},
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

CorpusRows corpusRows(const QStringList &rows)
{
    CorpusRows result;
    for (const QString &row : rows) {
        result.push_back(corpusText(row));
        while (result.back().ends_with('|')) {
            result.back().pop_back();
        }
    }
    return result;
}

CorpusRows corpusRows(Connection &connection, const QString &table, const QString &columns)
{
    QStringList rows;
    const QString names = QString(columns).replace(u","_qs, u"],["_qs);
    connection.run(
        u"SELECT [%1] FROM %2 ORDER BY rowid"_qs.arg(names, table), {},
        [&](const QVariantList &row) { rows += QVariant(row).toStringList().join(u'|'); });
    return corpusRows(rows);
}

CorpusTables corpusTables(Connection &connection)
{
    CorpusTables result;
    for (const auto &[table, columns] : corpusColumns().asKeyValueRange()) {
        result[table.toStdString()] = corpusRows(connection, table, columns);
    }
    return result;
}

CorpusTables corpusTables(CorpusTables before, const QMap<QString, QStringList> &named)
{
    for (const auto &[table, rows] : named.asKeyValueRange()) {
        before[table.toStdString()] = corpusRows(rows);
    }
    return before;
}

void fillCorpusTable(Connection &connection, const QString &table, const QString &names,
                     const QStringList &rows)
{
    const QStringList columns = names.split(u',');
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

std::string corpusText(const QString &text)
{
    QString result;
    for (const QChar character : text) {
        const int code = character.unicode();
        result += character == u'\r'   ? u"\\r"_qs
                  : character == u'\n' ? u"\\n"_qs
                  : code < 0x20        ? u"\\x%1"_qs.arg(code, 2, 16, QChar(u'0'))
                                       : QString(character);
    }
    return result.toStdString();
}

std::chrono::milliseconds corpusTime(const QString &text)
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

std::vector<CorpusCase> corpusCases(const QString &folder)
{
    std::vector<CorpusCase> result;
    const QDir files(QStringLiteral(LUKORA_CORPUS "/") + folder);
    for (const QFileInfo &info : files.entryInfoList(QDir::Files, QDir::Name)) {
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly)) {
            fail("cannot read " + info.filePath().toStdString());
        }
        std::vector<CorpusLine> always;
        std::vector<CorpusLine> *lines = &always;
        QSet<QString> titles;
        bool takesRows = false;
        const QStringList all = QString::fromUtf8(file.readAll()).split(u'\n');
        for (int i = 0; i < all.size(); ++i) {
            const QString &line = all[i];
            if (takesRows && line.startsWith(u"  ")) {
                lines->back().rows.append(line.mid(2));
                continue;
            }
            takesRows = !line.isEmpty() && !line.startsWith(u'#');
            if (!takesRows) {
                continue;
            }
            const std::string place =
                (info.fileName() + u':').toStdString() + std::to_string(i + 1) + ": ";
            const QString word = line.section(u' ', 0, 0);
            const QString rest = line.mid(word.size() + 1);
            if (word != u"==") {
                lines->push_back({place, i + 1, word, rest, {}});
                continue;
            }
            if (titles.contains(rest)) {
                fail(place + "the name is used before");
            }
            titles += rest;
            takesRows = false;
            result.push_back({place + rest.toStdString(), always});
            lines = &result.back().lines;
        }
        if (titles.isEmpty()) {
            fail(info.fileName().toStdString() + ": no case");
        }
    }
    return result;
}

std::vector<Transcript> transcripts(const QString &folder)
{
    std::vector<Transcript> result;
    for (const CorpusCase &each : corpusCases(folder)) {
        result.push_back(Reader(each).read());
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
