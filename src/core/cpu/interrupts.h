// The interrupt logic: flag and enable bits, the interrupt pins of port B, the test and the entry.
// Data sheet: "Interrupts".
#pragma once

#include "core/processor.h"
#include "core/registers.h"

namespace corvane::core {

// True when a peripheral asks for an interrupt that its enable bit lets through, GIE and PEIE being
// set.
bool EnabledPeripheralAsks(const Processor& processor);

// True when an enabled source asks for an interrupt and GIE is set.
inline bool InterruptPending(const Processor& processor) {
    const std::uint8_t intcon = processor.state.dataMemory[kIntcon];
    if (!AnySet(intcon, intcon::kGie)) {
        return false;
    }
    // RBIF, INTF and T0IF stand three bits below their enable bits.
    return (intcon & (intcon >> 3) & intcon::kCoreFlags) != 0 ||
           (AnySet(intcon, intcon::kPeie) && EnabledPeripheralAsks(processor));
}

// Clears GIE, pushes pc, continues at 0004h. Costs one instruction cycle; clears no flag.
void EnterInterrupt(Processor& processor);

}  // namespace corvane::core
