#include "app/pin_appearance.h"

#include <cstddef>

namespace corvane::app {

namespace {

constexpr int kPortA = 0;
constexpr std::size_t kTrisA = 0x085;  // TRISB to TRISE follow it

bool HasConverter(const models::FamilyTraits& traits) {
    return traits.analogUnit == models::AnalogUnit::Converter;
}

bool IsBitSet(int value, int bit) {
    return ((value >> bit) & 1) != 0;
}

bool IsAnalog(const core::ProcessorState& state, std::optional<int> channel) {
    return channel && state.analogPinFlags.at(static_cast<std::size_t>(*channel));
}

// What an input that serves as a reference shows; empty for every other pin.
std::string ReferenceText(const core::Processor& processor, core::Pin pin) {
    const core::ProcessorState& state = processor.state;
    const bool isRa2 =
        pin.port == kPortA && pin.bit == 2 && state.analogPinFlags[core::kRa2Reference];
    const bool isRa3 =
        pin.port == kPortA && pin.bit == 3 && state.analogPinFlags[core::kRa3Reference];
    if (HasConverter(*processor.traits)) {
        return isRa2 ? "VREF-" : isRa3 ? "VREF+" : "";
    }
    return isRa2 ? VoltsText(state.analogValues[2]) : "";
}

}  // namespace

PinAppearance AppearanceOf(const core::Processor& processor, core::Pin pin) {
    const core::ProcessorState& state = processor.state;
    const models::FamilyTraits& traits = *processor.traits;
    const auto port = static_cast<std::size_t>(pin.port);
    const std::optional<int> channel = models::AnalogChannelOf(traits, pin);
    const bool isInput = IsBitSet(state.dataMemory.at(kTrisA + port), pin.bit);
    if (isInput && IsAnalog(state, channel)) {
        const int value = state.analogValues.at(static_cast<std::size_t>(*channel));
        return {PinButton::Analog, PinLevel::Analog, AnalogValueText(traits, value), isInput};
    }
    const PinButton button = isInput ? PinButton::Input : PinButton::None;
    if (const std::string reference = ReferenceText(processor, pin);
        isInput && !reference.empty()) {
        return {HasConverter(traits) ? PinButton::None : button, PinLevel::Analog, reference,
                isInput};
    }
    return IsBitSet(state.portValues.at(port), pin.bit)
               ? PinAppearance{button, PinLevel::High, "ON", isInput}
               : PinAppearance{button, PinLevel::Low, "OFF", isInput};
}

std::string VoltsText(int hundredths) {
    std::string digits = std::to_string(hundredths);
    digits.insert(0, digits.size() < 3 ? 3 - digits.size() : 0, '0');
    return digits.substr(0, 1) + "." + digits.substr(1) + "V";
}

AnalogUnit AnalogUnitOf(const models::FamilyTraits& traits) {
    return HasConverter(traits) ? AnalogUnit{0, ""} : AnalogUnit{2, "V"};
}

std::string AnalogValueText(const models::FamilyTraits& traits, int value) {
    return HasConverter(traits) ? std::to_string(value) : VoltsText(value);
}

}  // namespace corvane::app
