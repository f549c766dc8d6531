// The interrupt logic: flag and enable bits, the interrupt pins of port B, the test and the entry.
// Data sheet: "Interrupts".
#pragma once

#include "core/processor.h"
#include "core/registers.h"

namespace corvane::core {

// True when a source asks for an interrupt that its enable bit lets through; GIE is set.
bool EnabledSourceAsks(const Processor& processor);

// True when an enabled source asks for an interrupt and GIE is set.
inline bool InterruptPending(const Processor& processor) {
    return AnySet(processor.state.dataMemory[kIntcon], intcon::kGie) &&
           EnabledSourceAsks(processor);
}

// Clears GIE, pushes pc, continues at 0004h. Costs one instruction cycle; clears no flag.
void EnterInterrupt(Processor& processor);

}  // namespace corvane::core
