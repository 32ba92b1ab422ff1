#include "simulation/Run.h"

#include "simulation/Rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

namespace {

/// Behind a step so long, before the rules look: mostly it has had its effect by then.
constexpr milliseconds kBehindStep = 1s;

Failure failure(Site &site, const Violation &violation)
{
    const auto &events = site.witness().events();
    return {violation, site.world().clock.elapsed(), {events.begin(), events.end()}};
}

} // namespace

std::optional<Failure> play(const std::vector<Step> &steps, int days,
                            const std::function<void(const std::string &)> &onEvent)
{
    Site site;
    site.witness().onEvent = onEvent;
    Rules rules(site);
    auto step = steps.begin();
    for (int day = 0; day < days; ++day) {
        milliseconds now = day * 24h;
        const auto end =
            std::find_if(step, steps.end(), [&](const Step &each) { return each.at >= now + 24h; });
        std::for_each(step, end, [&](const Step &each) { site.schedule(each, each.at - now); });
        for (; step != end; ++step) {
            const milliseconds then = std::max(step->at + kBehindStep, now);
            site.run(then - now);
            now = then;
            if (const auto violation = rules.broken()) {
                return failure(site, *violation);
            }
        }
        site.run((day + 1) * 24h - now);
        site.settle();
        if (const auto violation = rules.brokenAtRest()) {
            return failure(site, *violation);
        }
    }
    static bool isToldAlready = false;
    if (testing::UnitTest::GetInstance()->Failed() && !std::exchange(isToldAlready, true)) {
        return failure(site, {"the doubles are used as they may be", "see above"});
    }
    return {};
}

std::vector<Step> shortest(std::vector<Step> steps, int days, const std::string &rule,
                           milliseconds patience)
{
    const auto until = std::chrono::steady_clock::now() + patience;
    const auto stillFails = [&](const std::vector<Step> &fewer) {
        const auto found = play(fewer, days);
        return found && found->violation.rule == rule;
    };
    for (size_t piece = (steps.size() + 1) / 2; piece > 0; piece /= 2) {
        for (size_t start = 0; start < steps.size();) {
            if (std::chrono::steady_clock::now() > until) {
                return steps;
            }
            std::vector<Step> fewer(steps.begin(), steps.begin() + static_cast<long>(start));
            const size_t behind = std::min(start + piece, steps.size());
            fewer.insert(fewer.end(), steps.begin() + static_cast<long>(behind), steps.end());
            if (stillFails(fewer)) {
                steps = fewer;
            } else {
                start += piece;
            }
        }
    }
    return steps;
}
