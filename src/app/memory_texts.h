// The texts of the three memory viewers. Lines are separated by CR LF, none after the last.
#pragma once

#include <string>

#include "core/processor.h"

namespace corvane::app {

constexpr int kProgramMemoryRows = 16;

// Sixteen words from address scrollValue - 1 on: "0005h   2805h   10100000000101".
std::string ProgramMemoryText(const core::Processor& processor, int scrollValue);
// The scroll bar goes from 1 to this.
int LargestProgramMemoryScrollValue(int programWords);

// One line per 16 bytes, the highest address first, each byte followed by a blank.
std::string EepromText(const core::ProcessorState& state, int eepromBytes);
// "00h", "10h" and so on, one line per 16 bytes.
std::string EepromRowHeading(int eepromBytes);

// One line per level: "Level 1:  0005h   0000000000101".
std::string StackText(const core::ProcessorState& state);
// "Level 8".
std::string StackPointerText(const core::ProcessorState& state);

}  // namespace corvane::app
