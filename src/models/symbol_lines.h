// The predefined symbols that the assembler and the BASIC compiler take from a description file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "models/description.h"

namespace corvane::models {

struct PredefinedSymbol {
    std::string name;  // upper case, as long as the file has it
    int value;         // 0..65535
};

struct PredefinedSymbols {
    std::vector<PredefinedSymbol> symbols;  // in file order
    std::vector<int> badLines;              // numbers of the lines that were skipped as invalid
};

// Reads lines of the form NAME EQU value in any case, with blanks, tabs and comments; other lines
// are ignored. A name that begins with no letter or "_", or a value that is no number, makes a bad
// line.
PredefinedSymbols ReadSymbolLines(const std::vector<SymbolLine>& lines);

// What a person is told about a bad line: "Invalid argument of the EQU directive.", CR LF and
// "File '" + the model's file name + "' is corrupted.".
std::string BadSymbolLineMessage(std::string_view modelName);

}  // namespace corvane::models
