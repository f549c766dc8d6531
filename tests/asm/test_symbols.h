// The predefined symbols of the assembler's tests.
#pragma once

#include <vector>

#include "models/symbol_lines.h"

namespace corvane::assembler {

constexpr int kTestConfigurationWord = 0x3FF1;

inline std::vector<models::PredefinedSymbol> TestSymbols() {
    return {
        {"INDF", 0x00},
        {"PCL", 0x02},
        {"STATUS", 0x03},
        {"FSR", 0x04},
        {"PORTB", 0x06},
        {"PCLATH", 0x0A},
        {"INTCON", 0x0B},
        {"TRISB", 0x86},
        {"C", 0},
        {"DC", 1},
        {"Z", 2},
        {"NOT_PD", 3},
        {"NOT_TO", 4},
        {"RP0", 5},
        {"RP1", 6},
        {"IRP", 7},
        {"RBIF", 0},
        {"INTF", 1},
        {"T0IF", 2},
        {"RBIE", 3},
        {"INTE", 4},
        {"T0IE", 5},
        {"PEIE", 6},
        {"GIE", 7},
        {"W", 0},
        {"F", 1},
        {"TWICE", 1},
        {"TWICE", 2},
        {"CUT_TO_32_CHARACTERS_PREDEFINED_NAME", 0x20},
    };
}

}  // namespace corvane::assembler
