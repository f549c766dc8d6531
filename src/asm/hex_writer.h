// The program file of an assembly in Intel HEX format.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace corvane::assembler {

// A data record's four digits of byte address reach this word address.
constexpr int kHighestHexAddress = 0x7FFF;

// Data records of 8 words from address 0 on, then the configuration word at its place (word address
// 2007h), then the end record; each line ends with CR LF.
std::string IntelHexText(std::span<const std::uint16_t> words, int configurationWord);

}  // namespace corvane::assembler
