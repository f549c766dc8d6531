// Storing into cells, and the levels that follow from those of ports. Data sheet: "I/O Ports".
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/processor.h"
#include "core/registers.h"

namespace corvane::core {

// Stores the bits that a write can change; nothing else happens.
inline void StoreMasked(Processor& processor, std::size_t cell, int value) {
    processor.state.dataMemory[cell] =
        static_cast<std::uint8_t>(value & processor.description.writeMask[cell]);
}

// A pin that is an output forgets its input level; an output pin reads its latch, an input pin its
// level. Pins that read low are analog inputs.
inline void UpdateLevels(ProcessorState& state, std::size_t port, std::uint8_t pinsThatReadLow) {
    const std::uint8_t tris = state.dataMemory[kTrisA + port];
    const std::uint8_t latch = state.dataMemory[kPortA + port];
    const int inputs = state.pinInputs[port] & tris & ~pinsThatReadLow;
    state.pinInputs[port] = static_cast<std::uint8_t>(inputs);
    state.portValues[port] = static_cast<std::uint8_t>((latch & ~tris) | inputs);
}

// What a new value in the latch of a port changes: only outputs.
inline void UpdateOutputs(ProcessorState& state, std::size_t port) {
    const std::uint8_t tris = state.dataMemory[kTrisA + port];
    const std::uint8_t latch = state.dataMemory[kPortA + port];
    state.portValues[port] = static_cast<std::uint8_t>((latch & ~tris) | state.pinInputs[port]);
}

// True when the outputs of a port have the levels of their latches.
inline bool OutputsAreUpToDate(const ProcessorState& state, std::size_t port) {
    const int difference = state.dataMemory[kPortA + port] ^ state.portValues[port];
    return (difference & ~state.dataMemory[kTrisA + port]) == 0;
}

}  // namespace corvane::core
