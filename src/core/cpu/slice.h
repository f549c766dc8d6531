// Executing instructions one after the other.
#pragma once

#include <cstdint>

#include "core/processor.h"

namespace corvane::core {

// Executes instructions until something is due or asks for a look, pc arrives at a mark, or
// maxSteps (1 or more) are done; returns how many.
std::int64_t ExecuteSlice(Processor& processor, std::int64_t maxSteps);

// Executes one.
void ExecuteInstruction(Processor& processor);

}  // namespace corvane::core
