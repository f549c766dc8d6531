#include "app/breakpoint_list.h"

#include <algorithm>

#include "common/number_text.h"

namespace corvane::app {

bool BreakpointList::Contains(int address) const {
    return std::ranges::binary_search(addresses_, address);
}

bool BreakpointList::Toggle(int address) {
    const auto place = std::ranges::lower_bound(addresses_, address);
    if (place != addresses_.end() && *place == address) {
        addresses_.erase(place);
        return true;
    }
    if (addresses_.size() == kBreakpointSlots) {
        return false;
    }
    addresses_.insert(place, address);
    return true;
}

std::array<std::string, kBreakpointSlots> BreakpointList::Slots() const {
    std::array<std::string, kBreakpointSlots> slots;
    std::ranges::transform(addresses_, slots.begin(), common::Hex4);
    return slots;
}

}  // namespace corvane::app
