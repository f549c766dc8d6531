// What each instruction does. Data sheet: "Instruction Descriptions".
#pragma once

#include "core/processor.h"

namespace corvane::core {

// The function and operands that execute a word (0..3FFFh) at an address while a bank (0..3) is
// selected.
DecodedWord Decode(const Processor& processor, int word, int address, int bank);

// Whether it is a GOTO that leads back.
bool ClosesLoop(const DecodedWord& decoded);

}  // namespace corvane::core
