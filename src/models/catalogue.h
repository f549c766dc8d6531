// The microcontrollers and what their families have in common. Register maps are not here but in
// the description files (models/description.h).
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
    std::string_view laterVersion;  // what the chip with an A behind the name has more; empty: none
    bool isOffered = true;          // in the dialog that selects a model
};

// From the data sheets of the later versions, "Migration" or "Device Differences".
constexpr std::string_view kNoDifference = "a program sees no difference.";
constexpr std::string_view kWithComparators =
    "its comparators and voltage reference (CMCON, CVRCON), the conversion clock bit ADCON1.ADCS2 "
    "and program memory writes of four words are left out.";
constexpr std::string_view kOtherOscillators =
    "only the RC and internal oscillators differ, which a program does not see.";

inline constexpr auto kModelCatalogue = std::to_array<Model>({
    {.name = "PIC16F83",
     .programWords = 512,
     .eepromBytes = 64,
     .defaultConfigurationWord = 0x3FF1,
     .family = ModelFamily::Pic16F8x,
     .laterVersion = ""},
    {.name = "PIC16F84",
     .programWords = 1024,
     .eepromBytes = 64,
     .defaultConfigurationWord = 0x3FF1,
     .family = ModelFamily::Pic16F8x,
     .laterVersion = kNoDifference},
    {.name = "PIC16F873",
     .programWords = 4096,
     .eepromBytes = 128,
     .defaultConfigurationWord = 0x3D71,
     .family = ModelFamily::Pic16F87x28,
     .laterVersion = kWithComparators},
    {.name = "PIC16F874",
     .programWords = 4096,
     .eepromBytes = 128,
     .defaultConfigurationWord = 0x3D71,
     .family = ModelFamily::Pic16F87x40,
     .laterVersion = kWithComparators},
    {.name = "PIC16F876",
     .programWords = 8192,
     .eepromBytes = 256,
     .defaultConfigurationWord = 0x3D71,
     .family = ModelFamily::Pic16F87x28,
     .laterVersion = kWithComparators},
    {.name = "PIC16F877",
     .programWords = 8192,
     .eepromBytes = 256,
     .defaultConfigurationWord = 0x3D71,
     .family = ModelFamily::Pic16F87x40,
     .laterVersion = kWithComparators},
    {.name = "PIC16F627",
     .programWords = 1024,
     .eepromBytes = 128,
     .defaultConfigurationWord = 0x3F50,
     .family = ModelFamily::Pic16F62x,
     .laterVersion = kOtherOscillators,
     .isOffered = false},
    {.name = "PIC16F628",
     .programWords = 2048,
     .eepromBytes = 128,
     .defaultConfigurationWord = 0x3F50,
     .family = ModelFamily::Pic16F62x,
     .laterVersion = kOtherOscillators,
     .isOffered = false},
});
constexpr int kModelCount = static_cast<int>(kModelCatalogue.size());

// Rows of the catalogue; the settings value "Microcontroller Model" holds such a row.
constexpr int kDefaultModel = 1;  // PIC16F84

// The row with this name, in upper or lower case.
std::optional<int> FindModel(std::string_view name);

// A model under the name that a person or another tool gives it.
struct NamedModel {
    int row;
    std::string warning;  // what the chip of this name has that its model has not, or nothing
};

// The same for names as people write them: "16F84", "pic16f877a". A later version of a chip runs as
// the model that it replaces.
std::optional<NamedModel> FindModelAsWritten(std::string_view name);

// An I/O pin: "RB7" is {1, 7}.
struct Pin {
    int port;  // 0 to 4 for ports A to E
    int bit;   // 0..7
    bool operator==(const Pin&) const = default;
};

constexpr int kPortCount = 5;       // ports A to E
constexpr int kAnalogChannels = 8;  // AN0 to AN7

// What analog inputs lead to, and what their values count.
enum class AnalogUnit : std::uint8_t {
    None,
    Converter,    // counts of the A/D converter
    Comparators,  // hundredths of a volt
};

constexpr int kNoRegister = -1;

// Flags that ask for an interrupt while INTCON's PEIE is set (EEIE on PIC16F8x).
struct InterruptSource {
    int flags = kNoRegister;
    int enables = kNoRegister;  // the register with the enable bits; without one all are enabled
    int mask = 0;               // the bits of both that are sources
};

// By port: how many channels are on the ports before it.
constexpr std::array<int, kPortCount + 1> FirstChannels(
    const std::array<Pin, kAnalogChannels>& pins, int channels) {
    std::array<int, kPortCount + 1> first{};
    for (int channel = 0; channel < channels; ++channel) {
        const auto port = static_cast<std::size_t>(pins[static_cast<std::size_t>(channel)].port);
        for (std::size_t later = port + 1; later < first.size(); ++later) {
            ++first[later];
        }
    }
    return first;
}

// What the models of a family have in common. Registers are full data-memory addresses, bank x 80h
// + file address.
struct FamilyTraits {
    std::string_view name;  // as the command line lists it: "PIC16F8x"
    int chipWindow;         // the number under which settings keep its Microcontroller View
    int portCount;          // ports that are read through the pins, from PORTA on
    std::array<std::uint8_t, kPortCount> portPins;  // the I/O pins that the ports have
    int eedata;
    int eeadr;
    int eecon1;
    int eecon2;
    int eeifRegister;  // where the EEPROM write-complete flag stands
    int eeifMask;
    bool hasEepgd;  // EECON1 can point at program memory
    std::array<InterruptSource, 2> interruptSources = {};
    AnalogUnit analogUnit = AnalogUnit::None;
    int analogChannels = 0;                            // AN0.. that a person can set
    int analogFullScale = 0;                           // largest analog value
    std::array<Pin, kAnalogChannels> analogPins = {};  // of AN0.., in the order of the ports
    // The first channel on each port or behind it, and the number of channels.
    std::array<int, kPortCount + 1> firstChannels = FirstChannels(analogPins, analogChannels);
};

// The row of the family.
const FamilyTraits& TraitsOf(ModelFamily family);

// The analog channel (0 for AN0) on this pin, if it has one.
std::optional<int> AnalogChannelOf(const FamilyTraits& traits, Pin pin);

// The description file's name: "pic16f84.cfg".
std::string DescriptionFileName(std::string_view modelName);

}  // namespace corvane::models
