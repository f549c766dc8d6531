// What each instruction does. Data sheet: "Instruction Descriptions".
#pragma once

#include "core/processor.h"

namespace corvane::core {

// The function and operands that execute a word (0..3FFFh) at this address (0..8191). The function
// expects pc on the next address and the word's first instruction cycle counted.
DecodedWord DecodeForExecution(const Processor& processor, int word, int address);

}  // namespace corvane::core
