#include "core/peripherals/peripherals.h"

#include <algorithm>
#include <iterator>

namespace corvane::core {

namespace {

// In the order in which the chip does what is due at the end of a step: the ports come last. Where
// two claim the same cell it belongs to the later one.
constexpr std::array kAllPeripherals = {
    &kInterruptFlags, &kTimer0, &kConverter, &kComparators, &kEeprom, &kPorts,
};

}  // namespace

std::vector<const Peripheral*> PeripheralsOf(const models::FamilyTraits& traits) {
    std::vector<const Peripheral*> peripherals;
    std::ranges::copy_if(kAllPeripherals, std::back_inserter(peripherals),
                         [&traits](const Peripheral* peripheral) {
                             return peripheral->isPartOf == nullptr || peripheral->isPartOf(traits);
                         });
    return peripherals;
}

}  // namespace corvane::core
