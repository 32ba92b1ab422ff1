#include "simulation/Step.h"

#include <algorithm>
#include <cstdio>
#include <random>

namespace {

struct Row {
    const char *name;
    int weight; ///< how often, among the others
};

// In the order of Act.
constexpr Row kRows[] = {
    {"Register", 10},   {"Wait", 8},        {"Delete", 7},      {"FreeText", 4},
    {"NextDoor", 6},    {"Line", 2},        {"File", 1},        {"Reports", 1},
    {"Close", 2},       {"Hasty", 4},       {"Slow", 4},        {"Person", 12},
    {"Odd", 8},         {"Flood", 1},       {"Lose", 2},        {"Double", 3},
    {"Delay", 3},       {"Fault", 8},       {"Restart", 2},     {"Notice", 6},
    {"Unplug", 2},      {"Full", 2},        {"Failing", 1},     {"ReadOnly", 1},
    {"KillNow", 1},     {"KillAtWrite", 2}, {"KillAtYield", 2}, {"KillAtSend", 2},
    {"OtherWrites", 3}, {"OtherHolds", 2},
};
static_assert(std::size(kRows) == kActs);

constexpr milliseconds kDay = 24h;
constexpr int kStepsADay = 40;
constexpr milliseconds kOfficeCloses = 9h; ///< days begin at nine in the morning

} // namespace

std::vector<Step> stepsOf(unsigned seed, int days)
{
    // The engine's numbers are the same everywhere; the library's distributions are not.
    std::mt19937 random(seed);
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    int weights = 0;
    for (const Row &row : kRows) {
        weights += row.weight;
    }

    std::vector<Step> steps;
    for (int day = 0; day < days; ++day) {
        // On workdays the PC is on for so long; at the weekend it is forgotten.
        if (day % 7 < 5) {
            steps.push_back({day * kDay + kOfficeCloses, Act::Close, kNight, below(1 << 16)});
        }
    }
    milliseconds at{0};
    const milliseconds mean = kDay / kStepsADay;
    while (true) {
        // Most things that go wrong take two that meet: every second step follows the one before
        // within seconds.
        const bool isBurst = below(2) == 0;
        at += isBurst ? milliseconds(below(20'000))
                      : milliseconds(below(static_cast<unsigned>(4 * mean.count())));
        if (at >= days * kDay) {
            break;
        }
        int act = 0;
        for (int chosen = static_cast<int>(below(static_cast<unsigned>(weights)));
             chosen >= kRows[act].weight; ++act) {
            chosen -= kRows[act].weight;
        }
        const unsigned a = below(1 << 16);
        steps.push_back({at, static_cast<Act>(act), a, below(1 << 16)});
    }
    std::ranges::stable_sort(steps, {}, &Step::at);
    return steps;
}

std::string dayAndTime(milliseconds at)
{
    const auto count = at.count();
    char text[40];
    std::snprintf(text, sizeof text, "day %lld %02lld:%02lld:%02lld.%03lld",
                  static_cast<long long>(count / 86'400'000 + 1),
                  static_cast<long long>(count / 3'600'000 % 24),
                  static_cast<long long>(count / 60'000 % 60),
                  static_cast<long long>(count / 1000 % 60), static_cast<long long>(count % 1000));
    return text;
}

std::string told(const Step &step)
{
    return dayAndTime(step.at) + ' ' + kRows[static_cast<int>(step.act)].name + ' ' +
           std::to_string(step.a) + ' ' + std::to_string(step.b);
}
