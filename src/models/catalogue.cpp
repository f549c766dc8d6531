#include "models/catalogue.h"

#include <cstddef>

#include "common/text.h"

namespace corvane::models {

namespace {

constexpr FamilyTraits kPic16F8x = {2, {0x1F, 0xFF}, 0x008, 0x009, 0x088, 0x089, 0x088, 0x10, 0, 0};
constexpr FamilyTraits kPic16F87x28 = {
    3, {0x3F, 0xFF, 0xFF}, 0x10C, 0x10D, 0x18C, 0x18D, 0x00D, 0x10, 5, 1023};
constexpr FamilyTraits kPic16F87x40 = {
    5, {0x3F, 0xFF, 0xFF, 0xFF, 0x07}, 0x10C, 0x10D, 0x18C, 0x18D, 0x00D, 0x10, 8, 1023};
constexpr FamilyTraits kPic16F62x = {2,     {0xFF, 0xFF}, 0x09A, 0x09B, 0x09C,
                                     0x09D, 0x00C,        0x80,  4,     500};

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
    switch (family) {
        case ModelFamily::Pic16F87x28:
            return kPic16F87x28;
        case ModelFamily::Pic16F87x40:
            return kPic16F87x40;
        case ModelFamily::Pic16F62x:
            return kPic16F62x;
        case ModelFamily::Pic16F8x:
            break;
    }
    return kPic16F8x;
}

std::string DescriptionFileName(std::string_view modelName) {
    return common::ToLower(modelName) + ".cfg";
}

}  // namespace corvane::models
