#include "models/package.h"

#include <array>
#include <span>

namespace corvane::models {

namespace {

// The labels of two pins that face each other.
struct PinRow {
    std::string_view left;
    std::string_view right;
};

// The rows from the notch down.

constexpr std::array<PinRow, 9> kPic16F8x = {{
    {"RA2", "RA1"},
    {"RA3", "RA0"},
    {"RA4/T0CKI", "OSC1/CLKIN"},
    {"\\MCLR", "OSC2/CLKOUT"},
    {"VSS", "VDD"},
    {"RB0/INT", "RB7"},
    {"RB1", "RB6"},
    {"RB2", "RB5"},
    {"RB3", "RB4"},
}};

constexpr std::array<PinRow, 9> kPic16F62x = {{
    {"RA2/AN2/VREF", "RA1/AN1"},
    {"RA3/AN3/CMP1", "RA0/AN0"},
    {"RA4/T0CKI/CMP2", "RA7/OSC1/CLKIN"},
    {"RA5/\\MCLR/THV", "RA6/OSC2/CLKOUT"},
    {"VSS", "VDD"},
    {"RB0/INT", "RB7/T1OSI"},
    {"RB1/RX/DT", "RB6/T1OSO/T1CKI"},
    {"RB2/TX/CK", "RB5"},
    {"RB3/CCP1", "RB4/PGM"},
}};

constexpr std::array<PinRow, 14> kPic16F87x28 = {{
    {"\\MCLR/VPP/THV", "RB7/PGD"},
    {"RA0/AN0", "RB6/PGC"},
    {"RA1/AN1", "RB5"},
    {"RA2/AN2/VREF-", "RB4"},
    {"RA3/AN3/VREF+", "RB3/PGM"},
    {"RA4/T0CKI", "RB2"},
    {"RA5/AN4/\\SS", "RB1"},
    {"VSS", "RB0/INT"},
    {"OSC1/CLKIN", "VDD"},
    {"OSC2/CLKOUT", "VSS"},
    {"RC0/T1OSO/T1CKI", "RC7/RX/DT"},
    {"RC1/T1OSI/CCP2", "RC6/TX/CK"},
    {"RC2/CCP1", "RC5/SDO"},
    {"RC3/SCK/SCL", "RC4/SDI/SDA"},
}};

constexpr std::array<PinRow, 20> kPic16F87x40 = {{
    {"\\MCLR/VPP/THV", "RB7/PGD"},   {"RA0/AN0", "RB6/PGC"},       {"RA1/AN1", "RB5"},
    {"RA2/AN2/VREF-", "RB4"},        {"RA3/AN3/VREF+", "RB3/PGM"}, {"RA4/T0CKI", "RB2"},
    {"RA5/AN4/\\SS", "RB1"},         {"RE0/\\RD/AN5", "RB0/INT"},  {"RE1/\\WR/AN6", "VDD"},
    {"RE2/\\CS/AN7", "VSS"},         {"VDD", "RD7/PSP7"},          {"VSS", "RD6/PSP6"},
    {"OSC1/CLKIN", "RD5/PSP5"},      {"OSC2/CLKOUT", "RD4/PSP4"},  {"RC0/T1OSO/T1CKI", "RC7/RX/DT"},
    {"RC1/T1OSI/CCP2", "RC6/TX/CK"}, {"RC2/CCP1", "RC5/SDO"},      {"RC3/SCK/SCL", "RC4/SDI/SDA"},
    {"RD0/PSP0", "RD3/PSP3"},        {"RD1/PSP1", "RD2/PSP2"},
}};

std::span<const PinRow> PinRows(ModelFamily family) {
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

}  // namespace

std::vector<PackagePin> PackagePins(ModelFamily family) {
    const std::span<const PinRow> rows = PinRows(family);
    const auto rowCount = static_cast<int>(rows.size());
    std::vector<PackagePin> pins;
    for (int row = 0; const PinRow& labels : rows) {
        pins.push_back({row + 1, PackageSide::Left, row, labels.left});
        ++row;
    }
    for (int row = 0; const PinRow& labels : rows) {
        pins.push_back({2 * rowCount - row, PackageSide::Right, row, labels.right});
        ++row;
    }
    return pins;
}

}  // namespace corvane::models
