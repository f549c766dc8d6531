// Executing instructions. Data sheet: "Instruction Set Summary", "Interrupts".
#pragma once

#include <cstdint>

#include "core/processor.h"

namespace corvane::core {

struct RunResult {
    std::int64_t steps;      // executed, 1 or more
    bool breakpointReached;  // pc is a breakpoint after the last of them
};

// Executes one step: the entry of a pending interrupt, or one instruction, then the peripherals.
RunResult ExecuteStep(Processor& processor);

// Executes steps until maxSteps (1 or more) are done, a step raises stopRequested (SLEEP, a word
// that is no instruction, pc at or past the end of program memory), or a breakpoint is reached.
RunResult Run(Processor& processor, std::int64_t maxSteps);

}  // namespace corvane::core
