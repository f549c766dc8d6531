// The simulated processor: its state, the model it is, and what execution derives from both.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "core/dispatch.h"
#include "core/processor_state.h"
#include "models/catalogue.h"
#include "models/description.h"

namespace corvane::core {

struct Processor {
    const models::Model* model;
    models::ModelDescription description;
    int eepromWriteTime = 1000;  // clock cycles
    int adConversionTime = 100;  // clock cycles
    ProcessorState state;
    Dispatch dispatch;  // belongs to the engine: call StateChanged after editing the state by hand
};

// A processor of this model with empty memories, reset.
Processor MakeProcessor(const models::Model& model, models::ModelDescription description);

// The processor reset. Program memory, the peripheral times and the breakpoints survive it.
// Data sheet: "Reset", power-on values of the registers.
void Clean(Processor& processor);

// Puts the words at address 0 and clears the rest of program memory; words beyond it are dropped.
void FillProgramMemory(Processor& processor, std::span<const std::uint16_t> words);

// Run and ExecuteStep report a breakpoint when pc is one of these addresses (0..8191) after a step.
void SetBreakpoints(Processor& processor, std::span<const int> addresses);

// Must be called after somebody else than the engine has changed processor.state.
void StateChanged(Processor& processor);

// "MOVLW 0x55", "INTERRUPT!", "UNRECOGNIZED", or nothing after a reset.
std::string LastInstructionText(const ProcessorState& state);

}  // namespace corvane::core
