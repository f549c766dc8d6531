// The comparators and the voltage reference of PIC16F62x.
// Data sheet: "Comparator Module", "Voltage Reference Module".
#pragma once

#include "core/processor_state.h"

namespace corvane::core {

// Sets vrefValue and RA2's reference flag from VRCON.
void VoltageReferenceUpdate(ProcessorState& state);

// Sets the analog flags of RA0 to RA3 from the comparator mode.
void ComparatorPortConfig(ProcessorState& state);

// Sets C1OUT and C2OUT from the inputs that the comparator mode connects.
void ComparatorUpdate(ProcessorState& state);

}  // namespace corvane::core
