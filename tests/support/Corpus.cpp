#include "support/Corpus.h"

#include "data/Connection.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <stdexcept>

namespace {

[[noreturn]] void fail(const QString &text)
{
    throw std::runtime_error(text.toStdString());
}

QDir folder()
{
    return QDir(QStringLiteral(LUKORA_CORPUS "/sentences"));
}

void expectKeys(const QStringList &keys, const QStringList &known)
{
    for (const QString &key : keys) {
        if (!known.contains(key)) {
            fail(u"unknown key "_qs + key);
        }
    }
}

QString text(const QJsonValue &value)
{
    if (!value.isString()) {
        fail(u"a text is expected"_qs);
    }
    return value.toString();
}

/// One text or a list of them.
QStringList texts(const QJsonValue &value)
{
    QStringList result;
    for (const QJsonValue &one : value.isArray() ? value.toArray() : QJsonArray{value}) {
        result += text(one);
    }
    return result;
}

QByteArray lineBytes(const QString &text)
{
    for (const QChar character : text) {
        if (character.unicode() > 0xFF) {
            fail(u"no byte of a line: "_qs + character);
        }
    }
    return text.toLatin1();
}

QMap<QString, QStringList> tables(const QJsonValue &value)
{
    QMap<QString, QStringList> result;
    if (!value.isObject() && !value.isUndefined()) {
        fail(u"tables are expected"_qs);
    }
    const QJsonObject object = value.toObject();
    expectKeys(object.keys(), corpusColumns().keys());
    for (const QString &table : object.keys()) {
        result[table] = texts(object[table]);
    }
    return result;
}

std::string told(QString row)
{
    row.replace(u"\r"_qs, u"\\r"_qs).replace(u"\n"_qs, u"\\n"_qs);
    while (row.endsWith(u'|')) {
        row.chop(1);
    }
    return row.toStdString();
}

CorpusSentence sentence(const QJsonObject &line)
{
    expectKeys(line.keys(), {u"name"_qs, u"from"_qs, u"country"_qs, u"dates"_qs, u"before"_qs,
                             u"refuses"_qs, u"says"_qs, u"record"_qs, u"after"_qs});
    if (line.contains(u"says"_qs) == line.contains(u"record"_qs) || !line[u"after"_qs].isObject()) {
        fail(u"says or record is expected, and after"_qs);
    }
    const auto optional = [&](const QString &key, const QString &otherwise) {
        return line.contains(key) ? text(line[key]) : otherwise;
    };
    CorpusSentence result{.name = text(line[u"name"_qs]).toStdString(),
                          .from = lineBytes(optional(u"from"_qs, u"+4790000001"_qs)),
                          .messages = 0,
                          .records = {},
                          .country = optional(u"country"_qs, u"47"_qs),
                          .dates = optional(u"dates"_qs, u"dd/MM/yyyy"_qs),
                          .refuses = optional(u"refuses"_qs, {}),
                          .before = tables(line[u"before"_qs]),
                          .after = tables(line[u"after"_qs])};
    const bool says = line.contains(u"says"_qs);
    for (const QString &body : texts(line[says ? u"says"_qs : u"record"_qs])) {
        result.records += says ? listed(result.from, lineBytes(body)) : lineBytes(body);
        result.messages += says;
    }
    return result;
}

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
        {u"SMS_Sent"_qs, u"TilNummer,SMS_Text,CMGS,TimeSent,TimeReceived,ReceivedStatus"_qs},
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

std::vector<CorpusSentence> corpusSentences(const QString &file)
{
    QFile lines(folder().filePath(file + u".jsonl"_qs));
    if (!lines.open(QIODevice::ReadOnly) || lines.size() == 0) {
        fail(u"cannot read "_qs + lines.fileName());
    }
    std::vector<CorpusSentence> result;
    QSet<std::string> names;
    for (int number = 1; !lines.atEnd(); ++number) {
        const QString place = u"%1.jsonl:%2: "_qs.arg(file).arg(number);
        QJsonParseError error;
        const auto line = QJsonDocument::fromJson(lines.readLine(), &error);
        try {
            if (!line.isObject()) {
                fail(u"no object, "_qs + error.errorString());
            }
            CorpusSentence one = sentence(line.object());
            if (names.contains(one.name)) {
                fail(u"the name is used before"_qs);
            }
            names += one.name;
            one.name = place.toStdString() + one.name;
            result.push_back(std::move(one));
        } catch (const std::runtime_error &failure) {
            fail(place + QString::fromUtf8(failure.what()));
        }
    }
    return result;
}

QStringList corpusSentenceFiles()
{
    return folder().entryList({u"*.jsonl"_qs}).replaceInStrings(u".jsonl"_qs, QString());
}

QByteArrayList corpusRecords()
{
    QByteArrayList result;
    for (const QString &file : corpusSentenceFiles()) {
        for (const CorpusSentence &one : corpusSentences(file)) {
            result += one.records;
        }
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
