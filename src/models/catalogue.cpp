#include "models/catalogue.h"

#include <array>
#include <cstddef>

#include "common/text.h"

namespace corvane::models {

namespace {

// In the order of ModelFamily.
constexpr std::array<FamilyTraits, 4> kTraits = {{
    {2, {0x1F, 0xFF}, 0x008, 0x009, 0x088, 0x089, 0x088, 0x10, 0, 0},
    {3, {0x3F, 0xFF, 0xFF}, 0x10C, 0x10D, 0x18C, 0x18D, 0x00D, 0x10, 5, 1023},
    {5, {0x3F, 0xFF, 0xFF, 0xFF, 0x07}, 0x10C, 0x10D, 0x18C, 0x18D, 0x00D, 0x10, 8, 1023},
    {2, {0xFF, 0xFF}, 0x09A, 0x09B, 0x09C, 0x09D, 0x00C, 0x80, 4, 500},
}};

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

std::string_view FamilyName(ModelFamily family) {
    switch (family) {
        case ModelFamily::Pic16F8x:
            return "PIC16F8x";
        case ModelFamily::Pic16F87x28:
            return "PIC16F87x (28 pins)";
        case ModelFamily::Pic16F87x40:
            return "PIC16F87x (40 pins)";
        case ModelFamily::Pic16F62x:
            return "PIC16F62x";
    }
    return "";
}

const FamilyTraits& TraitsOf(ModelFamily family) {
    return kTraits[static_cast<std::size_t>(family)];
}

std::string DescriptionFileName(std::string_view modelName) {
    return common::ToLower(modelName) + ".cfg";
}

}  // namespace corvane::models
