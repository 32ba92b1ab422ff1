#pragma once

#include "simulation/Step.h"
#include "simulation/Witness.h"

#include <optional>

/// How a run ended that broke a rule.
struct Failure {
    Violation violation;
    milliseconds at{0};
    std::vector<std::string> events; ///< the last ones
};

/// Plays these steps, from a fresh site; a rest behind each day brings everything to its end.
std::optional<Failure> play(const std::vector<Step> &steps, int days,
                            const std::function<void(const std::string &)> &onEvent = {});

/// Leaves steps out for as long as the same rule is still broken.
std::vector<Step> shortest(std::vector<Step> steps, int days, const std::string &rule,
                           milliseconds patience);
