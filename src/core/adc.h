// The A/D converter of PIC16F87x. Data sheet: "Analog-to-Digital Converter (A/D) Module".
#pragma once

#include "core/processor.h"

namespace corvane::core {

// Sets analogPinFlags from ADCON1.
void AdcPortConfig(ProcessorState& state);

// One step of the conversion, if one is in progress.
void AdcUpdate(Processor& processor);

}  // namespace corvane::core
