// What each instruction does. Data sheet: "Instruction Descriptions".
#pragma once

#include "core/processor.h"

namespace corvane::core {

// The function and operands that execute a word (0..3FFFh) while a bank (0..3) is selected.
DecodedWord Decode(const Processor& processor, int word, int bank);

}  // namespace corvane::core
