#pragma once

#include <QString>

class ModemLine;

/// What stands behind the header of a record in a listing (AT+CMGL, 3GPP TS 27.005): its text, and
/// the records behind it, up to the final "OK". A modem or a network may say something unasked
/// between any two lines; the line may fall silent, or the modem start anew.
class Listing {
public:
    explicit Listing(ModemLine &line) : line_(line) {}

    /// The text of the record, its lines joined by line feeds, without what came unasked. A line
    /// that looks unasked is taken for the text where no other line is. Empty for a message without
    /// text.
    QString readText();
    /// Reads over the records that follow.
    void readToEnd();

    /// Its first header was none: nothing of it counts.
    void breakOff() { isBroken_ = true; }

    /// The modem has said "OK" behind the last record, and every line made sense: a command for one
    /// of them reaches the record that was meant.
    bool isWhole() const { return end_ == End::Ok && !isBroken_; }
    /// The modem started anew, the line is gone, or a header is cut: what came counts for nothing.
    bool isBroken() const { return isBroken_; }
    /// It stopped somewhere: the rest may come yet.
    bool isSilent() const { return end_ == End::Silence && !isBroken_; }

private:
    enum class End { None, Ok, Error, Silence };

    QString nextLine();
    bool endsWith(const QString &line, bool hasText);
    bool endsBehind(const QString &header);
    void judge(const QString &line);

    ModemLine &line_;
    QString ahead_; ///< a line that was looked at already
    End end_ = End::None;
    bool isBroken_ = false;
    bool hasStarted_ = false; ///< a boot word came, if it was none of a text
};
