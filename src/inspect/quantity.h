// What can be looked at in a simulated chip and its run: one number each.
#pragma once

#include <cstdint>

#include "core/processor.h"
#include "inspect/measurements.h"

namespace corvane::inspect {

enum class QuantityKind : std::uint8_t {
    W,
    Pc,
    Clocks,
    Instructions,
    Steps,
    Depth,
    // With a place:
    Cell,      // a register or a byte of RAM as stored
    CellPair,  // two of them, the low byte first
    CellBit,
    PinLevel,
    PinHigh,  // see PinTimes
    PinLow,
    PinPeriod,
    PinEdges,
    Count,  // executions of the instruction at an address
    Ram,    // the cell that a data-memory address reaches
    Eeprom,
    Stack,
};

struct Quantity {
    QuantityKind kind;
    int place = 0;   // cell, program or EEPROM address, stack level, or the pin's port
    int second = 0;  // the second cell of a pair; the bit of CellBit and of a pin

    bool operator==(const Quantity&) const = default;
};

// A place that is worked out while the program runs.
constexpr int kAnyPlace = -1;

// A run as it stands after a step or an event.
struct Moment {
    const core::Processor& processor;
    const Measurements& measurements;
};

// Looking changes nothing. The place is not kAnyPlace.
std::int64_t ValueOf(const Quantity& quantity, const Moment& moment);

// The indexes that ram[], eeprom[] and stack[] have on a model.
struct IndexRange {
    int lowest;
    int highest;
};
IndexRange IndexesOf(QuantityKind kind, const models::Model& model);

// Bits that show it: 1, 8, 13 or 16, and 64 of what counts.
int WidthOf(const Quantity& quantity);

}  // namespace corvane::inspect
