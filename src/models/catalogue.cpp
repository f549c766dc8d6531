#include "models/catalogue.h"

#include <cstddef>

#include "common/text.h"

namespace corvane::models {

namespace {

constexpr FamilyTraits kPic16F8x = {
    .name = "PIC16F8x",
    .chipWindow = 12,
    .portCount = 2,
    .portPins = {0x1F, 0xFF},
    .eedata = 0x008,
    .eeadr = 0x009,
    .eecon1 = 0x088,
    .eecon2 = 0x089,
    .eeifRegister = 0x088,
    .eeifMask = 0x10,
    .hasEepgd = false,
    .interruptSources = {{{.flags = 0x088, .mask = 0x10}}},
};

constexpr FamilyTraits kPic16F87x28 = {
    .name = "PIC16F87x (28 pins)",
    .chipWindow = 14,
    .portCount = 3,
    .portPins = {0x3F, 0xFF, 0xFF},
    .eedata = 0x10C,
    .eeadr = 0x10D,
    .eecon1 = 0x18C,
    .eecon2 = 0x18D,
    .eeifRegister = 0x00D,
    .eeifMask = 0x10,
    .hasEepgd = true,
    // CCP2IF, BCLIF, EEIF and the reserved bit 6 of PIR2.
    .interruptSources = {{{.flags = 0x00C, .enables = 0x08C, .mask = 0xFF},
                          {.flags = 0x00D, .enables = 0x08D, .mask = 0x59}}},
    .analogUnit = AnalogUnit::Converter,
    .analogChannels = 5,
    .analogFullScale = 1023,
    .analogPins = {{{0, 0}, {0, 1}, {0, 2}, {0, 3}, {0, 5}}},
};

constexpr FamilyTraits WithFortyPins() {
    FamilyTraits traits = kPic16F87x28;
    traits.name = "PIC16F87x (40 pins)";
    traits.chipWindow = 15;
    traits.portCount = 5;
    traits.portPins = {0x3F, 0xFF, 0xFF, 0xFF, 0x07};
    traits.analogChannels = 8;
    traits.analogPins = {{{0, 0}, {0, 1}, {0, 2}, {0, 3}, {0, 5}, {4, 0}, {4, 1}, {4, 2}}};
    traits.firstChannels = FirstChannels(traits.analogPins, traits.analogChannels);
    return traits;
}
constexpr FamilyTraits kPic16F87x40 = WithFortyPins();

constexpr FamilyTraits kPic16F62x = {
    .name = "PIC16F62x",
    .chipWindow = 22,
    .portCount = 2,
    .portPins = {0xFF, 0xFF},
    .eedata = 0x09A,
    .eeadr = 0x09B,
    .eecon1 = 0x09C,
    .eecon2 = 0x09D,
    .eeifRegister = 0x00C,
    .eeifMask = 0x80,
    .hasEepgd = false,
    .interruptSources = {{{.flags = 0x00C, .enables = 0x08C, .mask = 0xF7}}},  // no bit 3
    .analogUnit = AnalogUnit::Comparators,
    .analogChannels = 4,
    .analogFullScale = 500,
    .analogPins = {{{0, 0}, {0, 1}, {0, 2}, {0, 3}}},
};

}  // namespace

std::optional<int> FindModel(std::string_view name) {
    const std::string wanted = common::ToUpper(name);
    for (std::size_t row = 0; row < kModelCatalogue.size(); ++row) {
        if (kModelCatalogue[row].name == wanted) {
            return static_cast<int>(row);
        }
    }
    return std::nullopt;
}

std::optional<NamedModel> FindModelAsWritten(std::string_view name) {
    constexpr std::string_view kPrefix = "PIC";
    std::string full = common::ToUpper(name);
    if (!full.starts_with(kPrefix)) {
        full.insert(0, kPrefix);
    }
    if (const std::optional<int> row = FindModel(full)) {
        return NamedModel{*row, ""};
    }
    if (!full.ends_with('A')) {
        return std::nullopt;
    }
    const std::optional<int> row = FindModel(full.substr(0, full.size() - 1));
    if (!row) {
        return std::nullopt;
    }
    const Model& model = kModelCatalogue[static_cast<std::size_t>(*row)];
    if (model.laterVersion.empty()) {
        return std::nullopt;
    }
    return NamedModel{*row, full + " runs as " + std::string(model.name) + ": " +
                                std::string(model.laterVersion)};
}

const FamilyTraits& TraitsOf(ModelFamily family) {
    switch (family) {
        case ModelFamily::Pic16F8x:
            return kPic16F8x;
        case ModelFamily::Pic16F87x28:
            return kPic16F87x28;
        case ModelFamily::Pic16F87x40:
            return kPic16F87x40;
        case ModelFamily::Pic16F62x:
            break;
    }
    return kPic16F62x;
}

std::optional<int> AnalogChannelOf(const FamilyTraits& traits, Pin pin) {
    for (int channel = 0; channel < traits.analogChannels; ++channel) {
        if (traits.analogPins[static_cast<std::size_t>(channel)] == pin) {
            return channel;
        }
    }
    return std::nullopt;
}

std::string DescriptionFileName(std::string_view modelName) {
    return common::ToLower(modelName) + ".cfg";
}

}  // namespace corvane::models
