// The interrupt logic: flag and enable bits, the interrupt pins of port B, the test and the entry.
// Data sheet: "Interrupts".
#pragma once

#include "core/processor.h"

namespace corvane::core {

// True when an enabled source asks for an interrupt and GIE is set.
bool InterruptPending(const Processor& processor);

// Clears GIE, pushes pc, continues at 0004h. Costs one instruction cycle; clears no flag.
void EnterInterrupt(Processor& processor);

}  // namespace corvane::core
