// Making, loading and resetting a processor.
#pragma once

#include <cstdint>
#include <span>

#include "core/processor.h"

namespace corvane::core {

// A processor of this model with empty memories, reset.
Processor MakeProcessor(const models::Model& model, models::ModelDescription description);

// The processor reset. Program memory, the peripheral times, the breakpoints and stopRequested
// survive it. Data sheet: "Reset", power-on values of the registers.
void Clean(Processor& processor);

// Clean, stopRequested cleared, and the instruction cycle that precedes the first instruction.
void StartSimulation(Processor& processor);

// Puts the words at address 0 and clears the rest of program memory; words beyond it are dropped.
void FillProgramMemory(Processor& processor, std::span<const std::uint16_t> words);

// Run and ExecuteStep report a breakpoint when pc is one of these addresses (0..8191) after a step.
void SetBreakpoints(Processor& processor, std::span<const int> addresses);

// Must be called after somebody else than the engine has changed processor.state. Brings up to date
// what follows from registers and pins at once: how analog pins are used, and the ports.
void StateChanged(Processor& processor);

}  // namespace corvane::core
