// The eight microcontrollers and what their families have in common. Register maps are not here but
// in the description files (models/description.h).
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::models {

enum class ModelFamily : std::uint8_t { Pic16F8x, Pic16F87x28, Pic16F87x40, Pic16F62x };

struct Model {
    std::string_view name;
    int programWords;  // 14-bit words
    int eepromBytes;
    int defaultConfigurationWord;
    ModelFamily family;
};

constexpr int kModelCount = 8;

inline constexpr std::array<Model, kModelCount> kModelCatalogue = {{
    {"PIC16F83", 512, 64, 0x3FF1, ModelFamily::Pic16F8x},
    {"PIC16F84", 1024, 64, 0x3FF1, ModelFamily::Pic16F8x},
    {"PIC16F873", 4096, 128, 0x3D71, ModelFamily::Pic16F87x28},
    {"PIC16F874", 4096, 128, 0x3D71, ModelFamily::Pic16F87x40},
    {"PIC16F876", 8192, 256, 0x3D71, ModelFamily::Pic16F87x28},
    {"PIC16F877", 8192, 256, 0x3D71, ModelFamily::Pic16F87x40},
    {"PIC16F627", 1024, 128, 0x3F50, ModelFamily::Pic16F62x},
    {"PIC16F628", 2048, 128, 0x3F50, ModelFamily::Pic16F62x},
}};

// Rows of the catalogue; the settings value "Microcontroller Model" holds such a row.
constexpr int kDefaultModel = 1;  // PIC16F84

// The row with this name, in upper or lower case.
std::optional<int> FindModel(std::string_view name);

// The family's name as the command line lists it: "PIC16F8x".
std::string_view FamilyName(ModelFamily family);

// Of either package.
constexpr bool IsPic16F87x(ModelFamily family) {
    return family == ModelFamily::Pic16F87x28 || family == ModelFamily::Pic16F87x40;
}

// Registers are full data-memory addresses, bank x 80h + file address.
struct FamilyTraits {
    int portCount;                         // ports that are read through the pins, from PORTA on
    std::array<std::uint8_t, 5> portPins;  // the I/O pins that ports A to E have
    int eedata;
    int eeadr;
    int eecon1;
    int eecon2;
    int eeifRegister;  // where the EEPROM write-complete flag stands
    int eeifMask;
    int analogChannels;   // AN0.. that a person can set
    int analogFullScale;  // largest analog value: A/D counts, or hundredths of a volt on PIC16F62x
};

// What the models of a family have in common.
const FamilyTraits& TraitsOf(ModelFamily family);

// The description file's name: "pic16f84.cfg".
std::string DescriptionFileName(std::string_view modelName);

}  // namespace corvane::models
