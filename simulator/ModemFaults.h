#pragma once

#include "platform/Clock.h"

#include <QByteArray>

/// How often a fault still strikes.
class FaultCount {
public:
    FaultCount() = default;
    static FaultCount times(int count) { return FaultCount(count); }
    static FaultCount always() { return FaultCount(kAlways); }
    /// True when the fault strikes now; uses up one time.
    bool take()
    {
        if (left_ > 0) {
            --left_;
        } else if (left_ != kAlways) {
            return false;
        }
        return true;
    }

private:
    static constexpr int kAlways = -1;
    explicit FaultCount(int left) : left_(left) {}
    int left_ = 0;
};

/// What is broken in a SimulatedModem, or unlike other modems. A default one is a modem in good
/// order. simulator/Personalities.h has a name for each.
struct ModemFaults {
    // The line.

    /// Hears nothing and says nothing. Messages from the network are stored all the same.
    bool mute = false;
    /// Time from one character to the next on the way out; 0 sends each answer at once.
    milliseconds perCharacter{0};
    /// Time from one line to the next on the way out.
    milliseconds perLine{0};
    /// Every character reaches the PC in a piece of its own.
    bool split = false;
    /// What is said in this time comes in one piece, and one line end stands between two answers.
    milliseconds heldBack{0};
    /// "+CMGS:5" for "+CMGS: 5", and so in all that is told of messages.
    bool noBlanks = false;
    /// What comes for each CR LF.
    QByteArray lineEnd = "\r\n";
    /// "ATE0" is answered "OK" and changes nothing.
    bool echoStuck = false;
    /// Every answer is replaced by noise: NUL and high bytes, half lines.
    bool garbage = false;
    /// A line of its own accord in front of the answer to a command, between the header and the
    /// body of a listed message, and behind the text of a submission.
    FaultCount lineBeforeAnswer;
    FaultCount lineInRecord;
    FaultCount lineInSubmission;
    /// And behind any line of a listing: the first time behind the first, then behind the second.
    FaultCount lineInListing;
    QByteArray unsolicited = "+CMTI: \"SM\",19";

    // Submissions.

    /// What asks for a text, and how long it takes to come; what the PC writes meanwhile waits.
    QByteArray prompt = "\r\n> ";
    milliseconds promptDelay{0};
    /// "AT+CMGS=" is swallowed: no prompt comes, and the text is read as a command line.
    FaultCount noPrompt;
    /// Submissions that the network refuses, with this "+CMS ERROR: " number (3GPP TS 27.005,
    /// 3.2.5); with 0 as a plain "ERROR". A refused message does not go out.
    FaultCount refuseSubmission;
    int refusalNumber = 500;
    /// How much later than the message goes out its answer comes.
    milliseconds answerDelay{0};
    /// The message goes out, but no answer comes.
    FaultCount loseAnswer;
    /// The line drops between the prompt and the text; see SimulatedModem::setLineDrop.
    FaultCount dropAtPrompt;
    /// Behind a text the modem starts anew instead, with the settings that "AT&W" stored, or with
    /// the factory's.
    FaultCount restart;
    FaultCount restartForgetful;

    // Storage.

    /// "MT", or "SM", is no storage of this modem.
    bool refuseMt = false;
    bool refuseSm = false;
    /// "AT+CNMI" with status reports to the storage is answered "ERROR".
    bool refuseReports = false;
    /// No record fits in, whatever is deleted; the network keeps the messages meanwhile.
    bool storeFull = false;
    /// Number of the first place of a storage.
    int firstPlace = 1;
    /// Notices and lists name the place behind the right one.
    bool wrongPlace = false;
    /// "AT+CMGD" is answered "ERROR".
    FaultCount refuseDeletion;
    /// It deletes, and says nothing.
    FaultCount silentDeletion;
    /// Nobody is told of a message that comes, only that the storage is full when it is.
    bool tellsFullOnly = false;
    /// A modem that forgets its settings lists in PDU mode until "AT+CMGF=1".
    bool forgetsTextMode = false;
    /// Fourth field of a received message's header: the name that the modem's phone book has.
    QByteArray phoneBookName;
    /// Status reports name the recipient also without "AT+CSDH=1".
    bool recipientInReports = false;
};
