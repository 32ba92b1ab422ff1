#pragma once

#include "platform/Clock.h"

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

/// What is broken in a SimulatedModem. A default one is a modem in good order.
struct ModemFaults {
    /// Hears nothing and says nothing. Messages from the network are stored all the same.
    bool mute = false;
    /// Time from one character to the next on the way out; 0 sends each answer at once.
    milliseconds perCharacter{0};
    /// Submissions that the network refuses, with this "+CMS ERROR: " number (3GPP TS 27.005,
    /// 3.2.5); with 0 as a plain "ERROR". A refused message does not go out.
    FaultCount refuseSubmission;
    int refusalNumber = 500;
    /// "AT+CMGS=" is swallowed: no prompt comes, and the text is read as a command line.
    FaultCount noPrompt;
    /// The message goes out, but no answer comes.
    FaultCount loseAnswer;
    /// The line drops between the prompt and the text; see SimulatedModem::setLineDrop.
    FaultCount dropAtPrompt;
    /// "ATE0" is answered "OK" and changes nothing.
    bool echoStuck = false;
    /// Every answer is replaced by noise: NUL and high bytes, half lines.
    bool garbage = false;
    /// "MT" is no storage of this modem.
    bool refuseMt = false;
    /// "AT+CNMI" with status reports to the storage is answered "ERROR".
    bool refuseReports = false;
    /// No record fits in, whatever is deleted; the network keeps the messages meanwhile.
    bool storeFull = false;
    /// Status reports name the recipient also without "AT+CSDH=1".
    bool recipientInReports = false;
};
