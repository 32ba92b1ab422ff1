#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <map>
#include <string>
#include <vector>

class Connection;

// Messages as data: each line of a file in tests/corpus/sentences is a case, told in
// docs/corpus.md.

/// What the modem lists, and what the tables hold before and after it.
struct CorpusSentence {
    std::string name;       ///< with file and line
    QByteArray from;        ///< sender of the messages
    int messages = 0;       ///< how many of the records are messages of that sender
    QByteArrayList records; ///< as listed: header and body, each ended by CR LF
    QString country;
    QString dates;   ///< the system's short date, as a format of QDate
    QString refuses; ///< writes that the database refuses, as in a trigger: "INSERT ON Katalog"
    /// By table; each row is the values of corpusColumns() joined by "|".
    QMap<QString, QStringList> before;
    QMap<QString, QStringList> after;
};

/// The tables that a corpus may name, and the columns of a row there, joined by ",".
const QMap<QString, QString> &corpusColumns();

/// By table; rows are told without the empty values at their end, and line ends as in C++.
using CorpusTables = std::map<std::string, std::vector<std::string>>;

/// All tables of corpusColumns() as they stand.
CorpusTables corpusTables(Connection &connection);
/// The same with the rows that a corpus names in the place of those that stood there.
CorpusTables corpusTables(CorpusTables before, const QMap<QString, QStringList> &named);
/// Puts these rows into the place of all others.
void fillCorpusTable(Connection &connection, const QString &table, const QStringList &rows);

/// The sentences of a file, such as "norwegian".
/// @throws std::runtime_error with file and line for a file that cannot be read or is empty, a line
/// that is no such object, an unknown key or table, a name used twice and a character that is no
/// byte of a line.
std::vector<CorpusSentence> corpusSentences(const QString &file);

/// The files' names, without ".jsonl".
QStringList corpusSentenceFiles();
/// The records of all sentences of all files, for whoever needs many different messages.
QByteArrayList corpusRecords();

/// A message as a modem lists it, at place 7.
QByteArray listed(const QByteArray &sender, const QByteArray &body);
/// The storage number in a record's header.
int corpusIndex(const QByteArray &record);
