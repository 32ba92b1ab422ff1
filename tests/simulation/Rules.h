#pragma once

#include "simulation/Site.h"

#include <array>
#include <optional>
#include <set>

/// What must always hold, looked at from outside: in the tables, on the lines, in the modems.
class Rules {
public:
    explicit Rules(Site &site);

    /// Behind any step, with no handler of the program at work.
    std::optional<Violation> broken();
    /// When everything has been brought to its end.
    std::optional<Violation> brokenAtRest();

private:
    struct Rule {
        const char *name;
        std::string (Rules::*look)(); ///< what is wrong; empty where it holds
    };
    std::optional<Violation> firstOf(const Rule *begin, const Rule *end);

    std::string everyMessageIsFiledOnce();
    std::string noFiledMessageGoes();
    std::string noUserTwiceOnADoor();
    std::string everyUserIsInTheCatalogue();
    std::string whatTheOperatorSawIsThere();
    std::string resultsAreTheirOwn();
    std::string commandsGoOutOnce();
    std::string nothingElseChanges();
    std::string aFailureIsToldOnce();
    std::string theFileIsWhole();
    std::string nothingWaits();
    std::string theLinkIsIdle();
    std::string memoryIsFlat();

    void readMessages();
    std::string firstRow(const QString &sql);
    std::string others(int file);

    Site &site_;
    long long lastRow_[Site::kFiles] = {};
    long long rows_[Site::kFiles] = {};
    std::map<MessageKey, int> filed_;
    std::map<MessageKey, std::array<int, 2>> forms_; ///< rows without "OK" at the end, and with it
    QString others_[Site::kFiles];
    size_t widgets_ = 0;
    long pages_ = 0;
};
