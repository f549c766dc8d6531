#include "core/pins.h"

#include <cstddef>

#include "common/text.h"
#include "core/data_memory.h"
#include "core/interrupts.h"
#include "core/ports.h"
#include "core/timer0.h"

namespace corvane::core {

namespace {

// RA4/T0CKI. Whether the pin is an input does not matter.
void ExternalClockEdge(Processor& processor, bool newLevel) {
    const std::uint8_t option = processor.state.dataMemory[kOptionReg];
    const bool countsFalling = AnySet(option, option_reg::kT0se);
    if (AnySet(option, option_reg::kT0cs) && newLevel != countsFalling) {
        TimerTick(processor);
    }
}

// RB0/INT.
void IntPinEdge(ProcessorState& state, bool oldLevel) {
    const bool wantsRising = AnySet(state.dataMemory[kOptionReg], option_reg::kIntedg);
    if (oldLevel != wantsRising) {
        SetBits(state.dataMemory[kIntcon], intcon::kIntf);
    }
}

// RB4 to RB7.
void PortBChange(ProcessorState& state) {
    SetBits(state.dataMemory[kIntcon], intcon::kRbif);
}

void ApplyEdge(Processor& processor, Pin pin, bool newLevel) {
    if (pin.port == 0 && pin.bit == 4) {
        ExternalClockEdge(processor, newLevel);
    } else if (pin.port == 1 && pin.bit == 0) {
        IntPinEdge(processor.state, !newLevel);
    } else if (pin.port == 1 && pin.bit >= 4) {
        PortBChange(processor.state);
    }
}

void BringPortsUpToDate(Processor& processor) {
    UpdatePortInputs(processor);
    processor.dispatch.interruptPending = InterruptPending(processor);
    RaiseAttention(processor.dispatch, kAnalogAttention);
}

}  // namespace

std::optional<Pin> FindPin(const models::Model& model, std::string_view name) {
    const std::string upper = common::ToUpper(name);
    if (upper.size() != 3 || upper[0] != 'R' || upper[1] < 'A' || upper[2] < '0') {
        return std::nullopt;
    }
    const Pin pin = {upper[1] - 'A', upper[2] - '0'};
    const models::FamilyTraits& traits = models::TraitsOf(model.family);
    if (pin.port >= traits.portCount || pin.bit > 7 ||
        !AnySet(traits.portPins[static_cast<std::size_t>(pin.port)], 1 << pin.bit)) {
        return std::nullopt;
    }
    return pin;
}

void TogglePin(Processor& processor, Pin pin, bool simulationRunning) {
    std::uint8_t& inputs = processor.state.pinInputs[static_cast<std::size_t>(pin.port)];
    inputs = static_cast<std::uint8_t>(inputs ^ (1 << pin.bit));
    if (simulationRunning) {
        ApplyEdge(processor, pin, AnySet(inputs, 1 << pin.bit));
    }
    BringPortsUpToDate(processor);
}

void SetAnalogValue(Processor& processor, int channel, int value) {
    processor.state.analogValues[static_cast<std::size_t>(channel)] = value;
    BringPortsUpToDate(processor);
}

}  // namespace corvane::core
