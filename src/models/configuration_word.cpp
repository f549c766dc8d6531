#include "models/configuration_word.h"

#include <array>
#include <cstddef>

namespace corvane::models {

namespace {

constexpr int kErasedWord = 0x3FFF;

using TwoChoices = std::array<ConfigurationChoice, 2>;

// A field that is active at 0, or at 1, in all its bits.
constexpr TwoChoices ActiveLow(std::string_view active, std::string_view inactive, int mask) {
    return {{{active, 0}, {inactive, mask}}};
}
constexpr TwoChoices ActiveHigh(std::string_view active, std::string_view inactive, int mask) {
    return {{{active, mask}, {inactive, 0}}};
}

constexpr TwoChoices kCodeProtection8x = ActiveLow("ON", "OFF", 0x3FF0);
constexpr TwoChoices kCodeProtection87x = ActiveLow("ON", "OFF", 0x3030);
constexpr TwoChoices kCodeProtection62x = ActiveLow("ON", "OFF", 0x3C00);
constexpr TwoChoices kPowerUpTimer = ActiveLow("Enabled", "Disabled", 0x0008);
constexpr TwoChoices kWatchdogTimer = ActiveHigh("Enabled", "Disabled", 0x0004);
constexpr TwoChoices kEepromProtection = ActiveLow("ON", "OFF", 0x0100);
constexpr TwoChoices kProgramMemoryWrite = ActiveHigh("Enabled", "Disabled", 0x0200);
constexpr TwoChoices kBrownOutReset = ActiveHigh("Enabled", "Disabled", 0x0040);
constexpr TwoChoices kDebugger = ActiveLow("Enabled", "Disabled", 0x0800);
constexpr TwoChoices kLowVoltageProgramming = ActiveHigh("Enabled", "Disabled", 0x0080);
constexpr TwoChoices kMclrPin = ActiveHigh("\\MCLR", "Digital I/O", 0x0020);

constexpr std::array<ConfigurationChoice, 4> kOscillator = {{
    {"RC", 0x0003},
    {"HS", 0x0002},
    {"XT", 0x0001},
    {"LP", 0x0000},
}};
constexpr std::array<ConfigurationChoice, 8> kOscillator62x = {{
    {"LP", 0x0000},
    {"XT", 0x0001},
    {"HS", 0x0002},
    {"EC", 0x0003},
    {"INTRC", 0x0010},
    {"INTRC +ClkOut", 0x0011},
    {"ER", 0x0012},
    {"ER +ClkOut", 0x0013},
}};

constexpr ConfigurationField kPowerUpTimerField = {"Power-up Timer", 0x0008, kPowerUpTimer};
constexpr ConfigurationField kWatchdogTimerField = {"Watchdog Timer", 0x0004, kWatchdogTimer};
constexpr ConfigurationField kEepromProtectionField = {"EE Memory Code Protection", 0x0100,
                                                       kEepromProtection};
constexpr ConfigurationField kBrownOutResetField = {"Brown-out Reset", 0x0040, kBrownOutReset};
constexpr ConfigurationField kLowVoltageField = {"LV In-Circuit Serial Programming", 0x0080,
                                                 kLowVoltageProgramming};
constexpr ConfigurationField kOscillatorField = {"Oscillator Selection", 0x0003, kOscillator};

constexpr std::array<ConfigurationField, 4> kFields8x = {{
    {"Code Protection", 0x3FF0, kCodeProtection8x},
    kPowerUpTimerField,
    kWatchdogTimerField,
    kOscillatorField,
}};
constexpr std::array<ConfigurationField, 9> kFields87x = {{
    {"Flash Memory Code Protection", 0x3030, kCodeProtection87x},
    kPowerUpTimerField,
    kWatchdogTimerField,
    kEepromProtectionField,
    {"Flash Program Memory Write", 0x0200, kProgramMemoryWrite},
    kBrownOutResetField,
    {"In-Circuit Debugger", 0x0800, kDebugger},
    kLowVoltageField,
    kOscillatorField,
}};
constexpr std::array<ConfigurationField, 8> kFields62x = {{
    {"Flash Memory Code Protection", 0x3C00, kCodeProtection62x},
    kPowerUpTimerField,
    kWatchdogTimerField,
    kEepromProtectionField,
    {"RA5/\\MCLR Pin Function", 0x0020, kMclrPin},
    kBrownOutResetField,
    kLowVoltageField,
    {"Oscillator Selection", 0x0013, kOscillator62x},
}};

}  // namespace

std::span<const ConfigurationField> ConfigurationFields(ModelFamily family) {
    switch (family) {
        case ModelFamily::Pic16F8x:
            return kFields8x;
        case ModelFamily::Pic16F62x:
            return kFields62x;
        case ModelFamily::Pic16F87x28:
        case ModelFamily::Pic16F87x40:
            break;
    }
    return kFields87x;
}

std::optional<int> ChoiceOf(const ConfigurationField& field, int word) {
    for (std::size_t i = 0; i < field.choices.size(); ++i) {
        if (field.choices[i].bits == (word & field.mask)) {
            return static_cast<int>(i);
        }
    }
    return std::nullopt;
}

int WordOfChoices(std::span<const ConfigurationField> fields,
                  std::span<const std::optional<int>> choices) {
    int word = kErasedWord;
    for (std::size_t i = 0; i < fields.size() && i < choices.size(); ++i) {
        if (choices[i]) {
            const auto choice = static_cast<std::size_t>(*choices[i]);
            word = (word & ~fields[i].mask) | fields[i].choices[choice].bits;
        }
    }
    return word;
}

std::string ChoiceControlName(int field, int choice) {
    return "op" + std::to_string(field + 1) + std::to_string(choice + 1);
}

}  // namespace corvane::models
