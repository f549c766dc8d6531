// The digital I/O ports. Data sheet: "I/O Ports".
#pragma once

#include <cstddef>

#include "core/dispatch.h"
#include "core/processor.h"
#include "core/registers.h"

namespace corvane::core {

// Recomputes pinInputs, portValues and analogValues of every port of the model.
void UpdatePortInputs(Processor& processor);

// The same for the ports whose bits are set.
void UpdatePorts(Processor& processor, Attention ports);

// True for the ports (0 is port A) whose levels also decide analog values.
bool HasAnalogInputs(models::ModelFamily family, std::size_t port);

// A pin that is an output forgets its input level; an output pin reads its latch, an input pin its
// level. Pins that read low are analog inputs.
inline void UpdateLevels(ProcessorState& state, std::size_t port, std::uint8_t pinsThatReadLow) {
    const std::uint8_t tris = state.dataMemory[kTrisA + port];
    const std::uint8_t latch = state.dataMemory[kPortA + port];
    const int inputs = state.pinInputs[port] & tris & ~pinsThatReadLow;
    state.pinInputs[port] = static_cast<std::uint8_t>(inputs);
    state.portValues[port] = static_cast<std::uint8_t>((latch & ~tris) | inputs);
}

// The same for a port without analog inputs.
inline void UpdateDigitalPort(ProcessorState& state, std::size_t port) {
    UpdateLevels(state, port, 0);
}

// The attention bit of a port.
constexpr Attention PortAttention(std::size_t port) {
    return static_cast<Attention>(kPortAttention << port);
}

}  // namespace corvane::core
