// What the Microcontroller View shows of an I/O pin.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/pins.h"
#include "core/processor.h"

namespace corvane::app {

enum class PinButton : std::uint8_t { None, Input, Analog };
enum class PinLevel : std::uint8_t { High, Low, Analog };  // Analog: a value or a reference input

struct PinAppearance {
    PinButton button;
    PinLevel level;
    std::string text;  // "ON", "OFF", "512", "2.50V", "VREF-", "VREF+"
    bool isInput;
    bool operator==(const PinAppearance&) const = default;
};

// By the pin's direction, level and analog set-up. The model must have the pin.
PinAppearance AppearanceOf(const core::Processor& processor, core::Pin pin);

// Hundredths of a volt, 0..500: "2.50V".
std::string VoltsText(int hundredths);

// How the values of a family's analog inputs are written: 10^-decimals of the unit each.
struct AnalogUnit {
    int decimals = 0;
    const char* suffix = "";
};
AnalogUnit AnalogUnitOf(const models::FamilyTraits& traits);

// The value of an analog input as its family shows it: "512" or "2.50V".
std::string AnalogValueText(const models::FamilyTraits& traits, int value);

}  // namespace corvane::app
