// The model description file: register map, write masks and predefined symbols of one model.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"

namespace corvane::models {

constexpr int kDataMemorySize = 512;  // four banks of 128 addresses

// The pseudo-register behind the last row of every SfrList: Timer0's prescaler counter.
constexpr int kPrescalerAddress = 1000;

struct Gpr {
    std::string label;  // "00Ch"
    int address;        // 000h..1FFh
};

struct Sfr {
    std::string label;  // "003h  STATUS"
    int address;        // 000h..1FFh, or kPrescalerAddress
    int resetValue;
};

// A line of Section 2 or 3 as it stands in the file, with its number (from 1) for messages.
struct SymbolLine {
    std::string text;
    int lineNumber;
};

struct ModelDescription {
    ModelDescription();  // every address its own register, no bit writable, no registers listed

    std::array<std::uint16_t, kDataMemorySize>
        addressMap{};  // data-memory address to register cell
    std::array<std::uint8_t, kDataMemorySize>
        writeMask{};           // bits of a cell that a write can change
    std::vector<Gpr> gprList;  // in file order
    std::vector<Sfr> sfrList;  // in file order; the last is "TMR0 Prescaler"
    std::vector<SymbolLine> asmSymbolLines;
    std::vector<SymbolLine> basicSymbolLines;
};

// Reads a whole description file. The error is the number (from 1) of the first line of Section 1
// that is not five fields of the right form.
common::Result<ModelDescription, int> ReadModelDescription(std::string_view text);

}  // namespace corvane::models
