#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

#include <utility>

class ModemLine;

/// What stands behind the header of a record in a listing (AT+CMGL, 3GPP TS 27.005): its text, and
/// the records behind it, up to the final "OK". A modem or a network may say something unasked
/// between any two lines; the line may fall silent, or the modem start anew.
class Listing {
public:
    /// A line that looks like a cut header breaks the listing off, unless the listing before had
    /// the very same: then it is no accident.
    Listing(ModemLine &line, QSet<QString> seenBefore)
        : line_(line), seenBefore_(std::move(seenBefore))
    {
    }

    /// The header of the record.
    void begin(const QString &header);

    /// The text of the record, its lines joined by line feeds, empty ones between them too, without
    /// what came unasked. A line that looks unasked is taken for the text where no other line is.
    /// Empty for a message without text.
    QString readText();
    /// What came counts for nothing.
    void breakOff() { isBroken_ = true; }
    /// Reads over the records that follow.
    void readToEnd();

    /// The modem has said "OK" behind the last record, and every line made sense: a command for one
    /// of them reaches the record that was meant.
    bool isWhole() const { return end_ == End::Ok && !isBroken_; }
    /// The modem started anew, the line is gone, or a header is cut: what came counts for nothing.
    bool isBroken() const { return isBroken_; }
    /// It stopped somewhere: the rest may come yet.
    bool isSilent() const { return end_ == End::Silence && !hasStarted_; }
    /// Nothing has shown where the text that was read ends: the rest may be missing. Asked before
    /// the records behind it are read over.
    bool isTextCut() const { return isSilent() || end_ == End::Error; }
    /// The modem has said behind the end of the listing that it starts anew.
    bool hasRestarted() const { return hasRestarted_; }
    /// For the next listing.
    const QSet<QString> &oddLines() const { return oddLines_; }

private:
    enum class End { None, Ok, Error, Silence };

    QString nextLine();
    void addLine(QStringList &lines, const QString &line, bool followsNotice);
    bool endsWith(const QString &line, bool hasText);
    bool endsBehind(const QString &header);
    void judge(const QString &line);

    ModemLine &line_;
    QSet<QString> seenBefore_;
    QSet<QString> oddLines_;
    QString ahead_;         ///< a line that was looked at already
    int bareEnds_ = 0;      ///< before the line at hand
    int usualBareEnds_ = 0; ///< before the first line of the text, as this modem ends its lines
    End end_ = End::None;
    bool isBroken_ = false;
    bool hasStarted_ = false;   ///< a boot word came, if it was none of a text
    bool hasRestarted_ = false; ///< likewise behind an "OK"
};
