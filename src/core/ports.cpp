#include "core/ports.h"

#include <cstddef>

#include "core/registers.h"

namespace corvane::core {

namespace {

constexpr std::size_t kA = 0;
constexpr std::size_t kE = 4;
constexpr std::uint8_t kRa2 = 0x04;
constexpr std::uint8_t kRa3 = 0x08;

// Which analog channels stand on a port, and on which of its pins.
struct AnalogPins {
    std::size_t firstChannel;
    std::size_t endChannel;
    std::array<std::uint8_t, kAnalogChannels> pinMasks;  // by channel
};

constexpr AnalogPins kPortAPins = {0, 5, {0x01, 0x02, 0x04, 0x08, 0x20}};  // AN4 is on RA5
constexpr AnalogPins kPic16F62xPins = {0, 4, {0x01, 0x02, 0x04, 0x08}};
constexpr AnalogPins kPortEPins = {5, 8, {0, 0, 0, 0, 0, 0x01, 0x02, 0x04}};

std::uint8_t PinsThatReadLow(const ProcessorState& state, const AnalogPins& pins) {
    int mask = 0;
    for (std::size_t channel = pins.firstChannel; channel < pins.endChannel; ++channel) {
        mask |= state.analogPinFlags[channel] ? pins.pinMasks[channel] : 0;
    }
    return static_cast<std::uint8_t>(mask);
}

// A digital pin, or an output, drives its channel to one end of the scale.
void DeriveAnalogValues(ProcessorState& state, std::size_t port, const AnalogPins& pins,
                        int fullScale) {
    for (std::size_t channel = pins.firstChannel; channel < pins.endChannel; ++channel) {
        const std::uint8_t pin = pins.pinMasks[channel];
        const bool isInput = AnySet(state.dataMemory[kTrisA + port], pin);
        if (!isInput || !state.analogPinFlags[channel]) {
            state.analogValues[channel] = AnySet(state.portValues[port], pin) ? fullScale : 0;
        }
    }
}

bool IsDerived(const ProcessorState& state, std::size_t channel, std::uint8_t pin) {
    return !AnySet(state.dataMemory[kTrisA], pin) || !state.analogPinFlags[channel];
}

// A reference pin shows its channel the reference instead of a level.
void ApplyReferences(ProcessorState& state, bool isPic16F87x, int fullScale) {
    if (state.analogPinFlags[kRa2Reference] && IsDerived(state, 2, kRa2)) {
        state.analogValues[2] = isPic16F87x ? 0 : state.vrefValue;
    }
    if (isPic16F87x && state.analogPinFlags[kRa3Reference] && IsDerived(state, 3, kRa3)) {
        state.analogValues[3] = fullScale;
    }
}

void UpdateAnalogPort(Processor& processor, std::size_t port, const AnalogPins& pins) {
    ProcessorState& state = processor.state;
    const bool isPic16F87x = models::IsPic16F87x(processor.model->family);
    const int fullScale = models::TraitsOf(processor.model->family).analogFullScale;
    std::uint8_t low = PinsThatReadLow(state, pins);
    if (port == kA && isPic16F87x) {
        SetBits(low, (state.analogPinFlags[kRa2Reference] ? kRa2 : 0) |
                         (state.analogPinFlags[kRa3Reference] ? kRa3 : 0));
    }
    UpdateLevels(state, port, low);
    DeriveAnalogValues(state, port, pins, fullScale);
    if (port == kA) {
        ApplyReferences(state, isPic16F87x, fullScale);
    }
}

}  // namespace

bool HasAnalogInputs(models::ModelFamily family, std::size_t port) {
    return (port == kA && family != models::ModelFamily::Pic16F8x) || port == kE;
}

void UpdatePorts(Processor& processor, Attention ports) {
    const models::ModelFamily family = processor.model->family;
    const bool isPic16F62x = family == models::ModelFamily::Pic16F62x;
    const auto portCount = static_cast<std::size_t>(models::TraitsOf(family).portCount);
    for (std::size_t port = 0; port < portCount; ++port) {
        if ((ports & PortAttention(port)) == 0) {
            continue;
        }
        if (!HasAnalogInputs(family, port)) {
            UpdateDigitalPort(processor.state, port);
        } else if (port == kE) {
            UpdateAnalogPort(processor, port, kPortEPins);
        } else {
            UpdateAnalogPort(processor, port, isPic16F62x ? kPic16F62xPins : kPortAPins);
        }
    }
}

void UpdatePortInputs(Processor& processor) {
    UpdatePorts(processor, kAllPortsAttention);
}

}  // namespace corvane::core
