// The figures at the end of a simulation.
#pragma once

#include <string>

#include "core/processor_state.h"

namespace corvane::project {

// The message at the end of a simulation (lines separated by CR LF). Times are in seconds since
// midnight; a simulation may have begun the day before. The frequency is in MHz.
std::string StatisticsMessage(const core::ProcessorState& state, float startTime, float currentTime,
                              float clockFrequency);

}  // namespace corvane::project
