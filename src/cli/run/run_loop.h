// Executing steps until something ends the run.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "cli/run/recordings.h"
#include "cli/run/stimulus.h"
#include "common/result.h"
#include "inspect/observed_run.h"

namespace corvane::cli {

struct RunLimits {
    std::optional<std::int64_t> steps;
    std::optional<std::int64_t> clockCycles;
};

// Runs a started simulation until a limit is reached (tested before each step), the run pauses for
// another reason, or Ctrl-C is pressed. Events take place before the step that follows theirs. An
// error of the recordings ends the run and is returned.
common::Result<inspect::Pause> RunToEnd(inspect::ObservedRun& run, const RunLimits& limits,
                                        const std::vector<StimulusEvent>& events,
                                        Recordings& recordings);

}  // namespace corvane::cli
