// Which of the things that an interrupt routine must leave alone an instruction reads and writes.
#pragma once

#include <cstdint>

#include "check/chip_state.h"
#include "models/description.h"

namespace corvane::check {

// A set of them: bits of kWorking and so on.
using Resources = std::uint32_t;

constexpr Resources kWorking = 1;
constexpr Resources kCarry = 2;
constexpr Resources kDigitCarry = 4;
constexpr Resources kZero = 8;
constexpr Resources kFlags = kCarry | kDigitCarry | kZero;
constexpr Resources kRp0 = 16;
constexpr Resources kRp1 = 32;
constexpr Resources kFileSelect = 64;    // FSR
constexpr Resources kPclathPage = 128;   // the bits that GOTO and CALL need
constexpr Resources kPclathBlock = 256;  // the bits that only a write to PCL needs
constexpr Resources kAllResources = 511;

struct Effects {
    Resources reads = 0;
    Resources writes = 0;  // what the instruction found there is gone
};

// Of the word in this state. GOTO and CALL need PCLATH in a program memory of several pages.
Effects EffectsOf(int word, const ChipState& state, const models::ModelDescription& description,
                  bool hasPages);

// True when the word's operand is a register (the field f).
bool NamesRegister(int word);

// Of a word that names a register: whether the register's content becomes another one.
bool WritesRegister(int word);

// RETURN, RETLW and RETFIE.
bool IsReturn(int word);

// The flags that the word sets by its result, not by naming STATUS.
Resources FlagsOf(int word);

}  // namespace corvane::check
