#include "core/pins.h"

#include <cstddef>

#include "common/text.h"
#include "core/cpu/interrupts.h"
#include "core/peripherals/ports.h"
#include "core/registers.h"
#include "core/schedule.h"

namespace corvane::core {

namespace {

void ApplyEdge(Processor& processor, Pin pin, bool isHigh) {
    for (std::size_t index = 0; index < processor.peripherals.size(); ++index) {
        if (const auto pinEdge = processor.peripherals[index]->pinEdge; pinEdge != nullptr) {
            pinEdge(processor, pin, isHigh);
            Reschedule(processor, index);
        }
    }
}

void BringPortsUpToDate(Processor& processor) {
    UpdateAllPorts(processor);
    Tell(processor, News::Levels);
    processor.dispatch.interruptPending = InterruptPending(processor);
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
