// The simulated chip once more, written down as plainly as its rules allow: each word is looked up
// by its leading bits, ports are computed before every read, all peripherals run in each step, and
// nothing is remembered from one step to the next but the state itself. It is slow on purpose; the
// engine of the product is compared with it.
#pragma once

#include <array>
#include <cstdint>

#include "core/pins.h"
#include "core/processor_state.h"
#include "models/catalogue.h"
#include "models/description.h"

namespace corvane::core::plain {

struct Chip {
    const models::Model* model;
    models::ModelDescription description;
    std::array<std::uint16_t, kProgramCounterRange> programMemory{};
    int eepromWriteTime = 1000;  // clock cycles
    int adConversionTime = 100;  // clock cycles
};

void Clean(const Chip& chip, ProcessorState& state);
void Start(const Chip& chip, ProcessorState& state);
void ExecuteStep(const Chip& chip, ProcessorState& state);
void TogglePin(const Chip& chip, ProcessorState& state, Pin pin, bool simulationRunning);
void StateChanged(const Chip& chip, ProcessorState& state);
void AcceptAnalogValue(const Chip& chip, ProcessorState& state, int channel, int value);

}  // namespace corvane::core::plain
