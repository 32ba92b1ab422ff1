#pragma once

#include "simulation/Disk.h"
#include "simulation/Step.h"
#include "simulation/Witness.h"
#include "support/World.h"

#include <array>
#include <map>
#include <optional>

/// One site in virtual time: a PC with the whole program, three modems (COM1, COM2, network), four
/// doors, people, and another PC on the same file. It plays the steps; the rules look at it.
class Site {
public:
    static constexpr int kModems = 3;
    static constexpr int kDoors = 4;
    static constexpr int kFiles = 2;

    Site();
    ~Site();

    /// Has the step happen at its time, whatever the program is doing then.
    void schedule(const Step &step, milliseconds delay);
    /// Lets the time go by; a program that ended is started again.
    void run(milliseconds time);
    /// Everything works again, and whatever was left lying is brought to its end: each modem is
    /// chosen in turn until its store is empty, each file until its queue is.
    void settle();

    bool isUp() const { return isUp_; }
    /// The disk is out of order, another PC holds the file, or it could not be opened.
    bool isTroubled();
    /// Whether nobody keeps all others from reading the file.
    bool canLook() const { return !other_ || !isHeldAlone_; }
    World &world() { return *world_; }
    Witness &witness() { return witness_; }
    SimulatedModem &modem(int i) { return *modems_[static_cast<size_t>(i)]; }

    // Looks at a file as another PC.
    QStringList rows(int file, const QString &sql);
    QString value(int file, const QString &sql) { return rows(file, sql).value(0); }
    /// The file in use.
    int file();
    QString door(int i) const;
    /// Whether the user is in one of the tables for this door, in any file.
    bool isInTables(const QString &number, int door);
    /// Whether anything is left to be done by this modem, on the file in use.
    bool waits(int modem);

    /// What the operator, or another PC, has asked for.
    struct Order {
        QString number;
        int door = 0;
        bool mustBeThere = false; ///< he saw it in a table, and nothing has taken it away since
        int registered = 0;       ///< so often
        int deleted = 0;
    };
    std::map<std::pair<QString, int>, Order> &orders() { return orders_; }
    void heard(const QString &from, const QByteArray &raw);
    const std::map<QString, int> &freeTexts() const { return freeTexts_; }
    struct Box {
        milliseconds at{0};
        QString text;
        bool isAnswer = false; ///< to something that the operator did
    };
    const std::vector<Box> &boxes() const { return boxes_; }
    const std::vector<Violation> &violations() const { return violations_; }

private:
    void wire();
    void makeOtherFile();
    int chosenModem();
    void toModem(const QByteArray &bytes);
    std::vector<milliseconds> fate(const SmsMessage &message);

    void perform(const Step &step);
    void operate(const Step &step);
    void others(const Step &step);
    void breakThings(const Step &step);
    void breaks(SimulatedModem &modem, const ModemFaults &faults);
    Answer answerBox(const QString &text);

    // The operator's hands.
    Order &orderFor(const QString &number, int door);
    int doorOnScreen(); ///< -1 for none
    void enter(const QString &number, bool waits);
    void registers(const Step &step, bool waits);
    void deletes(const Step &step);
    void writesFreeText(const Step &step);
    void chooseLine(int modem);
    void chooseOtherFile();
    void closes(milliseconds time);
    void anotherWrites(const Step &step);
    QString numberOf(unsigned i) const;

    void die();
    void plug(bool in);
    bool hasMessage();
    void setDisk(Disk::Fault fault, milliseconds time);
    void holdFile(bool exclusively, milliseconds time);
    void letGoOfFile();
    void note(bool trouble);
    void settleFile();
    void bringUp();

    Disk &disk_ = Disk::instance();
    std::unique_ptr<World> world_;
    Witness witness_;
    std::vector<std::unique_ptr<SimulatedModem>> further_;
    std::array<SimulatedModem *, kModems> modems_{};
    std::shared_ptr<Connection> looks_[kFiles];
    std::shared_ptr<Connection> other_; ///< another PC's, while it holds the file
    milliseconds heldUntil_{0};
    bool isHeldAlone_ = false;
    std::map<std::pair<QString, int>, Order> orders_;
    std::map<QString, int> freeTexts_; ///< recipient and letters, and how often
    std::vector<Box> boxes_;
    std::vector<Violation> violations_;
    std::deque<Step> fates_;
    milliseconds upSince_{0};
    milliseconds faultySince_{0};     ///< the last thing that any modem or line was bothered with
    milliseconds outOfOrderSince_{0}; ///< the disk
    milliseconds slowBox_{0};
    milliseconds downFor_{0}; ///< until the program is started again
    bool isUp_ = false;
    bool isDead_ = false;
    int hands_ = 0;
    int openBoxes_ = 0;
    int serial_ = 0;
    std::optional<Step>
        haste_; ///< a click that awaits the next message, or any command, to the modem
    int yieldsToDeath_ = 0;
    int bytesToDeath_ = 0;
    int steps_ = 0; ///< counts faults, so that an older cure ends no newer one
};
