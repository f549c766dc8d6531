// What the byte- and bit-oriented instructions do, those that name a register.
// Data sheet: "Instruction Descriptions", "Indirect Addressing".
#pragma once

#include <cstddef>

#include "core/processor.h"
#include "isa/instruction_set.h"

namespace corvane::core {

// The function that executes a word of such an operation on this cell, which may be kIndirectCell.
ExecuteFunction RegisterInstruction(const Processor& processor, isa::Operation operation, int word,
                                    std::size_t cell);

}  // namespace corvane::core
