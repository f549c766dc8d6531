// The text of a program word.
#pragma once

#include <string>

namespace corvane::disasm {

// Mnemonic, blank, operands: "BSF STATUS,RP0". "UNRECOGNIZED" for a value that is no instruction.
std::string DecodeInstruction(int word);

// The operand texts. RegisterName takes a file address 0..127; the six registers that every bank
// has in common bear their names, the others are "0x0C".
std::string RegisterName(int f);
std::string DestinationName(int d);  // "W" for 0, "F" for 1, else empty
std::string BitName(int b, int f);   // bit number 0..7 of the register f

}  // namespace corvane::disasm
