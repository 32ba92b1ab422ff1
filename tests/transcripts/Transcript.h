#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <chrono>
#include <string>
#include <vector>

// Whole dialogues with modems as data: the files in tests/corpus/transcripts, told in
// docs/corpus.md.

struct TranscriptStep {
    enum class Kind {
        Writes,  ///< the program must write this now, line end and all
        Says,    ///< the modem says this then
        Waits,   ///< so much time passes first
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
    bool reports = false;
    bool init = false; ///< begins with the start of the modem, else with one that is ready
    std::vector<TranscriptStep> steps;
    QStringList told;   ///< boxes, in order
    QStringList showed; ///< texts of the status panels, in order, others between them
    QString ready;      ///< "yes" or "no" behind it all; empty when it doesn't matter
    /// By table; each row is the values of corpusColumns() joined by "|".
    QMap<QString, QStringList> before;
    QMap<QString, QStringList> after;
};

/// All transcripts of all files of a folder, in the order of their names.
/// @throws std::runtime_error with file and line for a file without a transcript, an unknown
/// directive or table, a name used twice in a file, a transcript that does or expects nothing.
std::vector<Transcript> transcripts(const QString &folder);
