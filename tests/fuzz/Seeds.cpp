// Writes what the corpus holds as inputs for the fuzzers: seeds FOLDER makes FOLDER/records, one
// listed record each, and FOLDER/dialogues, all that the modem says in a transcript.

#include "support/Corpus.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <stdexcept>

namespace {

void write(const QDir &folder, const QByteArrayList &inputs)
{
    if (!folder.mkpath(QStringLiteral(".")) || inputs.isEmpty()) {
        throw std::runtime_error("no folder or no input for " + folder.path().toStdString());
    }
    for (qsizetype i = 0; i < inputs.size(); ++i) {
        QFile file(folder.filePath(QString::number(i)));
        if (!file.open(QIODevice::WriteOnly) || file.write(inputs[i]) != inputs[i].size()) {
            throw std::runtime_error("cannot write " + file.fileName().toStdString());
        }
    }
}

QByteArrayList dialogues()
{
    QByteArrayList result;
    for (const Transcript &transcript : transcripts(QStringLiteral("transcripts"))) {
        QByteArray said;
        for (const TranscriptStep &step : transcript.steps) {
            said += step.kind == TranscriptStep::Kind::Says ? step.bytes : QByteArray();
        }
        result += said;
    }
    return result;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("seeds FOLDER\n", stderr);
        return 2;
    }
    try {
        const QDir folder(QString::fromLocal8Bit(argv[1]));
        write(folder.filePath(QStringLiteral("records")), corpusRecords());
        write(folder.filePath(QStringLiteral("dialogues")), dialogues());
    } catch (const std::runtime_error &failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
