#pragma once

#include "platform/Clock.h"

#include <string>
#include <vector>

/// What can happen in a simulated week, from outside of the program.
enum class Act {
    // The operator.
    Register, ///< a user on the door on screen, straight away
    Wait,     ///< the same by way of a waiting period
    Delete,   ///< a user of the door on screen
    FreeText, ///< to a user
    NextDoor, ///< by the arrows beside the door
    Line,     ///< another modem
    File,     ///< another database file
    Reports,  ///< on or off
    Close,    ///< and start again, after a while
    Hasty,    ///< does one of the last four while the program and the modem talk
    Slow,     ///< leaves the next box open for some time
    // People, doors, network.
    Person, ///< somebody writes a text of his own
    Odd,    ///< a door says one of the sentences of the corpus
    Flood,  ///< somebody writes very often
    Lose,   ///< the next message on the network is lost
    Double, ///< comes twice
    Delay,  ///< comes late, behind others
    // The modem.
    Fault,   ///< one of the personalities, for a time
    Restart, ///< by itself
    Notice,  ///< says something unasked
    Unplug,  ///< the line is cut, for a time
    // Machine and file.
    Full,     ///< no room on the disk, for a time
    Failing,  ///< errors of the disk
    ReadOnly, ///< a file that takes no write
    KillNow,
    KillAtWrite,
    KillAtYield,
    KillAtSend,
    // Another PC.
    OtherWrites,
    OtherHolds, ///< a transaction, for a time
};
constexpr int kActs = static_cast<int>(Act::OtherHolds) + 1;

/// Plain data, so that a run can be repeated, and with fewer of them. What a and b choose depends
/// on the act.
struct Step {
    milliseconds at{0}; ///< from the start of the run
    Act act = Act::Person;
    unsigned a = 0;
    unsigned b = 0;
};

/// As the a of Act::Close: until the next morning.
constexpr unsigned kNight = 1 << 16;

/// The steps of so many days, always the same for a seed, in their order.
std::vector<Step> stepsOf(unsigned seed, int days);

/// As "day 2 09:14:03.120 Register 17 4".
std::string told(const Step &step);
std::string dayAndTime(milliseconds at);
