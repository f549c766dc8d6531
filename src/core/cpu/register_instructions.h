// What the byte- and bit-oriented instructions do, those that name a register.
#pragma once

#include "core/dispatch.h"
#include "isa/instruction_set.h"

namespace corvane::core {

// The function that executes a word of such an operation.
ExecuteFunction RegisterInstruction(isa::Operation operation, int word);

}  // namespace corvane::core
