// Executing steps until something ends the run.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/stimulus.h"
#include "cli/trace.h"
#include "core/processor.h"

namespace corvane::cli {

struct RunLimits {
    std::optional<std::int64_t> steps;
    std::optional<std::int64_t> clockCycles;
};

// Runs a started simulation until a limit is reached (tested before each step), a step raises
// stopRequested, pc is a breakpoint after a step, or Ctrl-C is pressed. Events take place before
// the step that follows theirs. The trace, if there is one, gets a line a step; its error is
// returned and ends the run.
std::optional<std::string> RunToEnd(core::Processor& processor, const RunLimits& limits,
                                    const std::vector<StimulusEvent>& events, Trace* trace);

}  // namespace corvane::cli
