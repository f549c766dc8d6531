// The peripherals of the simulated chips.
#pragma once

#include <vector>

#include "core/peripheral.h"

namespace corvane::core {

extern const Peripheral kInterruptFlags;
extern const Peripheral kTimer0;
extern const Peripheral kConverter;
extern const Peripheral kComparators;
extern const Peripheral kEeprom;
extern const Peripheral kPorts;

// Those that chips of the family have, in the order in which they are advanced.
std::vector<const Peripheral*> PeripheralsOf(const models::FamilyTraits& traits);

}  // namespace corvane::core
