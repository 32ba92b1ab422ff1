#pragma once

#include "simulator/MessageStore.h"
#include "simulator/SmsNetwork.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

/// A rule that did not hold.
struct Violation {
    std::string rule;
    std::string text;
};

/// What stands for one message wherever it turns up: sender, stamp, and the letters and digits of
/// its text, which are the same in the modem's alphabet and in the tables.
using MessageKey = std::string;
MessageKey messageKey(const QString &from, const QString &stamp, const QString &text);
/// The letters and digits alone.
QString lettersOf(const QString &text);

/// Sees what crosses the lines, leaves the modems' stores and goes out on the network, and notes
/// what must never happen there.
class Witness {
public:
    explicit Witness(Clock &clock) : clock_(clock) {}

    std::function<void(const std::string &)> onEvent; ///< for whoever wants to read along

    // Told by the site.

    void toModem(int modem, const QByteArray &bytes);
    void fromModem(int modem, const QByteArray &bytes);
    void removed(const MessageRecord &record);
    void submitted(const SmsMessage &message);
    /// Disk or locks are out of order, from now on or no longer.
    void setTrouble(bool troubled);
    /// The program ended, whichever way, with these records left in the stores.
    void programEnded(const std::vector<const MessageStore *> &stores);
    /// The modem numbers what lies in its store anew: it comes as other records.
    void placesChange(const MessageStore &store);
    /// A box stood open since then, over whatever was under way.
    void boxClosed(milliseconds opened);
    /// What stands half in this modem's line will never be ended.
    void lineClosed(int modem) { lines_[modem] = {}; }
    /// The operator chose a line, or whatever else may interrupt a dialogue.
    void interrupted();
    void event(const std::string &what);

    // Asked by the rules.

    struct Fate {
        int removed = 0; ///< so many of them have left a modem
        int again = 0;   ///< so often one that was filed already may have come again
    };
    const std::map<MessageKey, Fate> &messages() const { return messages_; }

    struct Submission {
        milliseconds at{0};
        milliseconds heldUntil{0}; ///< by a box that stood open over it
        QString to;
        QString letters;         ///< of its text
        bool heard = false;      ///< its result has reached the PC
        bool excused = false;    ///< the program cannot know that it went out
        bool isAccepted = false; ///< by the network
    };
    const std::deque<Submission> &submissions() const { return submissions_; }
    /// Whether this PC was told this reference for such a message.
    bool wasTold(const QString &to, const QString &letters, const QString &reference) const;
    const std::vector<Violation> &violations() const { return violations_; }
    const std::deque<std::string> &events() const { return events_; }

private:
    struct Line {
        QByteArray said;     ///< of a line from the modem
        QByteArray typed;    ///< of a command line or a text
        bool isText = false; ///< between "AT+CMGS=" and its end
        bool isOpen = false; ///< a command waits for its result
        QByteArray command;
        QString recipient;
        milliseconds opened{0};
        milliseconds lastActivity{0};
        milliseconds outOfStepUntil{0};
    };
    void command(Line &line);
    void modemSays(Line &line, const QByteArray &text, bool isHeard);
    void complain(const char *rule, const std::string &text);

    Clock &clock_;
    Line lines_[8];
    std::map<MessageKey, Fate> messages_;
    std::deque<Submission> submissions_; ///< tried by the PC, in order
    std::map<std::pair<QString, QString>, std::vector<QString>> told_;
    std::vector<Violation> violations_;
    std::deque<std::string> events_;
    bool troubled_ = false;
    bool paced_ = false; ///< the 30 seconds stand
    milliseconds pacedSince_{0};
};
