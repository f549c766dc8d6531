// The program file of an assembly in Intel HEX format.
#pragma once

#include <string>
#include <vector>

#include "asm/assembler.h"

namespace corvane::assembler {

// A data record's four digits of byte address reach this word address.
constexpr int kHighestHexAddress = 0x7FFF;

// Data records of 8 words from address 0 up to the last word that is not 0, then the configuration
// word at its place (word address 2007h), then the end record; each line ends with CR LF. Of lines
// with the same address the last one counts.
std::string IntelHexText(const std::vector<AsmLine>& lines, int configurationWord);

}  // namespace corvane::assembler
