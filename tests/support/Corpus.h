#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <chrono>
#include <map>
#include <string>
#include <vector>

class Connection;

// Messages and whole dialogues with modems as data: the files in tests/corpus, told in
// docs/corpus.md.

/// A line of a case: "word rest", and the rows below it without the two blanks before them.
struct CorpusLine {
    std::string place; ///< file and line, for messages
    int number;        ///< of the line
    QString word;
    QString rest;
    QStringList rows;
};

/// "== name" and what stands below it, behind what stands before the first name of its file.
struct CorpusCase {
    std::string name; ///< with file and line
    std::vector<CorpusLine> lines;
};

/// All cases of all files of a folder of the corpus, in the order of the files' names.
/// @throws std::runtime_error with file and line for a file without a case and for a name used
/// twice in a file.
std::vector<CorpusCase> corpusCases(const QString &folder);
/// Line ends and other controls as in C++.
std::string corpusText(const QString &text);
/// "500ms", "14s" or "2min".
/// @throws std::runtime_error for anything else.
std::chrono::milliseconds corpusTime(const QString &text);

struct TranscriptStep {
    enum class Kind {
        Writes,  ///< the program must write this now, line end and all
        Says,    ///< the modem says this then
        Waits,   ///< so much time passes first, in which the program writes nothing
        Within,  ///< the next Writes comes before this time is over
        Anything ///< the program may write what it will, and hears "OK", until the next Writes
    };
    Kind kind;
    int line; ///< in the file
    QByteArray bytes;
    std::chrono::milliseconds time{0};
};

struct Transcript {
    std::string name; ///< with file and line
    bool onCom = true;
    bool onTcp = true;
    QString country = QStringLiteral("47");       ///< dial prefix
    QString dates = QStringLiteral("dd/MM/yyyy"); ///< the system's, as a format of QDate
    QString refuses; ///< writes that the database refuses, as in a trigger: "INSERT ON Katalog"
    bool reports = false;
    bool init = false; ///< begins with the start of the modem, else with one that is ready
    std::vector<TranscriptStep> steps;
    QByteArray from = "+4790000001"; ///< sender of the messages behind it
    QByteArrayList records;          ///< messages as listed that are dealt with one by one
    qsizetype filed = 0;             ///< how many of them get their row, from that sender
    QStringList told;                ///< boxes, in order
    QStringList showed;              ///< texts of the status panels, in order, others between them
    QString ready;                   ///< "yes" or "no" behind it all; empty when it doesn't matter
    /// By table; each row is the values of corpusColumns() joined by "|".
    QMap<QString, QStringList> before;
    QMap<QString, QStringList> after;
};

/// The tables that a corpus may name, and the columns of a row there, joined by ",".
const QMap<QString, QString> &corpusColumns();

/// Rows are told without the empty values at their end, and line ends as in C++.
using CorpusRows = std::vector<std::string>;
using CorpusTables = std::map<std::string, CorpusRows>;

/// The rows as a script has them, told like those of a table.
CorpusRows corpusRows(const QStringList &rows);
/// The columns, joined by ",", of the rows as they stand; the table may have a condition behind it.
CorpusRows corpusRows(Connection &connection, const QString &table, const QString &columns);
/// All tables of corpusColumns() as they stand.
CorpusTables corpusTables(Connection &connection);
/// The same with the rows that a corpus names in the place of those that stood there.
CorpusTables corpusTables(CorpusTables before, const QMap<QString, QStringList> &named);
/// Puts these rows into the place of all others. What a row does not say is NULL.
void fillCorpusTable(Connection &connection, const QString &table, const QString &columns,
                     const QStringList &rows);

/// The cases of a folder as transcripts.
/// @throws std::runtime_error as corpusCases() does, and with file and line for an unknown
/// directive or table and for a transcript that does or expects nothing.
std::vector<Transcript> transcripts(const QString &folder);

/// The messages of all sentences, for whoever needs many different ones.
QByteArrayList corpusRecords();

/// A message as a modem lists it, at place 7.
QByteArray listed(const QByteArray &sender, const QByteArray &body);
/// The storage number in a record's header.
int corpusIndex(const QByteArray &record);
