// What a person does to the chip's pins between two steps.
#pragma once

#include <optional>
#include <string_view>

#include "core/processor.h"

namespace corvane::core {

using models::Pin;

// The I/O pin of this name ("RA0" to "RE7", either case), if the model has it.
std::optional<Pin> FindPin(const models::Model& model, std::string_view name);

// Inverts the pin's input level. While a simulation runs this is also an edge: RA4/T0CKI may count
// Timer0, RB0/INT may set INTF, RB4 to RB7 set RBIF. Ends with the ports up to date.
// Data sheet: "Timer0 Module", "INT Interrupt", "PORTB Interrupt".
void TogglePin(Processor& processor, Pin pin, bool simulationRunning);

// Sets the value of an analog input, 0 to the family's full scale, and brings the ports up to date.
void SetAnalogValue(Processor& processor, int channel, int value);

}  // namespace corvane::core
