// The passing of time.
#pragma once

#include "core/processor.h"

namespace corvane::core {

// One instruction cycle: 4 clock cycles.
inline void InstructionCycle(Processor& processor) {
    processor.state.clockCycles += kClocksPerCycle;
}

// An instruction's further cycle, which is no further step.
inline void ExtraCycle(Processor& processor) {
    InstructionCycle(processor);
    ++processor.dispatch.extraCycles;
}

}  // namespace corvane::core
