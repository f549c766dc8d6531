// Start and the figures of Stop, for both front ends.
#pragma once

#include <string>

#include "core/processor.h"

namespace corvane::core {

// Resets the processor and counts the instruction cycle that precedes the first instruction.
void StartSimulation(Processor& processor);

// The message at the end of a simulation (lines separated by CR LF). Times are in seconds since
// midnight; a simulation may have begun the day before. The frequency is in MHz.
std::string StatisticsMessage(const ProcessorState& state, float startTime, float currentTime,
                              float clockFrequency);

}  // namespace corvane::core
