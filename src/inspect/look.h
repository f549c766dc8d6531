// Which steps of a run somebody must see. Between them the engine runs at its own speed.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/processor.h"
#include "inspect/measurements.h"
#include "inspect/quantity.h"

namespace corvane::inspect {

struct Look {
    bool everyStep = false;
    bool interruptEntries = false;
    bool eepromWrites = false;  // the steps of the sequence that unlocks a write, and its last one
    Addresses instructions{};   // steps that execute one of these

    Look& operator|=(const Look& other);
};

// The chip whose steps are to be seen, and the program in it.
struct Chip {
    const models::Model& model;
    const models::ModelDescription& description;
    std::span<const std::uint16_t> words;
};

// The steps that can change one of these.
Look LookAtChanges(std::span<const Quantity> quantities, const Chip& chip);

// The steps that count for those of these that are measured; the others need none.
Look LookToMeasure(std::span<const Quantity> quantities, const Chip& chip);

// Whether it is measured, and not just looked up in the chip.
bool IsMeasured(const Quantity& quantity);

// What Measurements must be asked for, so that these can be told.
void AddWanted(std::span<const Quantity> quantities, Wanted& wanted);

// The addresses of the calls and returns, of the instructions that write to a register, and of
// those that write to a port or its directions, in whatever bank.
Addresses CallsAndReturns(const Chip& chip);
Addresses WritesToCell(const Chip& chip, int cell);
Addresses WritesToPort(const Chip& chip, int port);

}  // namespace corvane::inspect
