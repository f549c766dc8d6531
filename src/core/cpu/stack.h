// The hardware stack: a ring of eight return addresses. Data sheet: "Stack".
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/processor_state.h"

namespace corvane::core {

// The ninth address overwrites the oldest.
inline void Push(ProcessorState& state, int address) {
    state.stackPointer = state.stackPointer == kStackLevels ? 1 : state.stackPointer + 1;
    state.hardwareStack[static_cast<std::size_t>(state.stackPointer)] =
        static_cast<std::uint16_t>(address);
}

// An empty stack returns whatever the level holds.
inline int Pop(ProcessorState& state) {
    const int address = state.hardwareStack[static_cast<std::size_t>(state.stackPointer)];
    state.stackPointer = state.stackPointer == 1 ? kStackLevels : state.stackPointer - 1;
    return address;
}

}  // namespace corvane::core
