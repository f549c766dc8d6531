// Executing instructions one after the other.
#pragma once

#include <cstdint>

#include "core/processor.h"

namespace corvane::core {

// Executes instructions until something is due or asks for a look, pc arrives at a mark, or
// the run's last step is done; returns how many.
std::int64_t ExecuteSlice(Processor& processor);

// Executes one.
void ExecuteInstruction(Processor& processor);

}  // namespace corvane::core
