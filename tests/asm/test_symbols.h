// The predefined symbols of the assembler's tests: those of a PIC16F84, and odd ones.
#pragma once

#include <vector>

#include "models/symbol_lines.h"
#include "shipped_files.h"

namespace corvane::assembler {

constexpr int kTestConfigurationWord = 0x3FF1;

inline std::vector<models::PredefinedSymbol> TestSymbols() {
    std::vector<models::PredefinedSymbol> symbols =
        models::ReadSymbolLines(DescriptionOf(ModelNamed("PIC16F84")).asmSymbolLines).symbols;
    symbols.insert(symbols.end(),
                   {{"TWICE", 1}, {"TWICE", 2}, {"CUT_TO_32_CHARACTERS_PREDEFINED_NAME", 0x20}});
    return symbols;
}

}  // namespace corvane::assembler
