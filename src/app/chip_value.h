// The values of the simulated chip that a person can change between two steps.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/processor.h"

namespace corvane::app {

enum class ValueKind : std::uint8_t { Pc, W, Register, Eeprom, StackLevel };

struct ValuePlace {
    ValueKind kind;
    int index = 0;  // address of a listed register or EEPROM byte; level 1 to 8; else 0
    std::optional<int> bit = std::nullopt;  // one of them instead of the whole
};

// "PC", "W", "STATUS", "GPR 00C", "TMR0 Prescaler", "EEPROM 3F", "stack level 3", "STATUS bit 5".
std::string NameOf(const core::Processor& processor, const ValuePlace& place);

// The value as it is stored; 0 or 1 for a bit.
int ValueAt(const core::Processor& processor, const ValuePlace& place);

// The bits of the value that can be changed: those that a register implements, the addresses of
// program memory. 0: none, or the model has no such place.
int ChangeableBits(const core::Processor& processor, const ValuePlace& place);

// Stores the value, without what a write by the program does besides: no peripheral begins
// anything, but from the next step on each works with what it finds. Bits that cannot be changed
// stay. PC and PCL follow each other.
void StoreValue(core::Processor& processor, const ValuePlace& place, int value);

}  // namespace corvane::app
