// Random weeks of a whole site, each from a number; docs/simulation.md tells how to read them.

#include "simulation/Disk.h"
#include "simulation/Run.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLoggingCategory>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>

namespace {

using Wall = std::chrono::steady_clock;

struct Options {
    unsigned first = 1;
    unsigned last = 1;
    int days = 7;
    double minutes = 0; ///< new seeds until they are over, instead of a last one
    double shrinking = 3;
    bool tells = false;
};

void tell(const std::string &event)
{
    std::printf("%s\n", event.c_str());
}

void report(unsigned seed, const Failure &failure, const Options &options)
{
    std::printf("\nSeed %u breaks a rule at %s: %s\n  %s\nThe last events:\n", seed,
                dayAndTime(failure.at).c_str(), failure.violation.rule.c_str(),
                failure.violation.text.c_str());
    for (const std::string &event : failure.events) {
        std::printf("  %s\n", event.c_str());
    }
    if (options.shrinking <= 0) {
        return;
    }
    const auto patience = std::chrono::duration_cast<milliseconds>(
        std::chrono::duration<double, std::ratio<60>>(options.shrinking));
    std::fflush(stdout);
    std::vector<Step> steps = stepsOf(seed, options.days);
    std::erase_if(steps, [&](const Step &step) { return step.at > failure.at; });
    const int days = static_cast<int>(failure.at / 24h) + 1;
    steps =
        shortest(std::move(steps), std::min(days, options.days), failure.violation.rule, patience);
    std::printf("It takes these steps:\n");
    for (const Step &step : steps) {
        std::printf("  %s\n", told(step).c_str());
    }
    if (const auto again = play(steps, std::min(days, options.days))) {
        std::printf("With them alone: %s\n", again->violation.text.c_str());
        for (const std::string &event : again->events) {
            std::printf("  %s\n", event.c_str());
        }
    }
    std::printf("Replay: lukora-simulation --seed %u --days %d\n", seed, options.days);
}

int playSeeds(const Options &options)
{
    const auto start = Wall::now();
    const auto seconds = [&] { return std::chrono::duration<double>(Wall::now() - start).count(); };
    unsigned played = 0;
    unsigned found = 0;
    for (unsigned seed = options.first;
         options.minutes > 0 ? seconds() < 60 * options.minutes : seed <= options.last; ++seed) {
        ++played;
        if (const auto failure =
                play(stepsOf(seed, options.days), options.days, options.tells ? tell : nullptr)) {
            ++found;
            report(seed, *failure, options);
        }
        std::fflush(stdout);
    }
    std::printf("%u seeds from %u, %d days each: %.1f s, %.2f simulated days a second, "
                "%u violations\n",
                played, options.first, options.days, seconds(), played * options.days / seconds(),
                found);
    return found == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt on its offscreen screen.
    QLoggingCategory::setFilterRules(u"qt.qpa.*=false\ndefault.warning=false"_qs);
    qputenv("QT_HASH_SEED", "0"); // the same each time
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Disk::instance();

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions(
        {{u"seed"_qs, u"Plays this one."_qs, u"N"_qs},
         {u"seeds"_qs, u"Plays these."_qs, u"A..B"_qs},
         {u"minutes"_qs, u"Plays seeds from A on, for so long."_qs, u"M"_qs},
         {u"days"_qs, u"Days of each."_qs, u"D"_qs, u"7"_qs},
         {u"tell"_qs, u"Tells every event."_qs},
         {u"shrink"_qs, u"Minutes for finding the fewest steps."_qs, u"M"_qs, u"3"_qs}});
    parser.process(application);
    Options options;
    if (parser.isSet(u"seeds"_qs)) {
        options.first = parser.value(u"seeds"_qs).section(u".."_qs, 0, 0).toUInt();
        options.last = parser.value(u"seeds"_qs).section(u".."_qs, 1, 1).toUInt();
    } else if (parser.isSet(u"seed"_qs)) {
        options.first = options.last = parser.value(u"seed"_qs).toUInt();
    }
    options.minutes = parser.value(u"minutes"_qs).toDouble();
    options.days = std::max(1, parser.value(u"days"_qs).toInt());
    options.shrinking = parser.value(u"shrink"_qs).toDouble();
    options.tells = parser.isSet(u"tell"_qs);
    return playSeeds(options);
}
