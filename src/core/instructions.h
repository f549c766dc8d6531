// What each instruction does. Data sheet: "Instruction Descriptions".
#pragma once

#include "core/dispatch.h"

namespace corvane::core {

// The function and operands that execute a word (0..3FFFh) at this address (0..8191). The function
// expects pc on the next address and the word's first instruction cycle counted.
DecodedWord DecodeForExecution(int word, int address);

// True for an instruction that reads the register it names.
bool ReadsRegister(int word);

}  // namespace corvane::core
