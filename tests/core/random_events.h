// What happens to the chip between two steps: pins, analog inputs, and edits of the state by hand.
#pragma once

#include "core/pins.h"
#include "core/plain_engine.h"
#include "core/random.h"

namespace corvane::core {

struct PinToggle {
    Pin pin;
    bool simulationRunning;
};
PinToggle RandomPinToggle(const models::Model& model, Random& random);

struct AnalogInput {
    int channel;
    int value;
};
// The model must have analog inputs.
AnalogInput RandomAnalogInput(const models::Model& model, const ProcessorState& state,
                              Random& random);

// Changes one thing to a value that it could have.
void RandomEdit(const plain::Chip& chip, ProcessorState& state, Random& random);

// Puts pc somewhere else, now and then at an end of a memory.
void RandomJump(const models::Model& model, ProcessorState& state, Random& random);

}  // namespace corvane::core
