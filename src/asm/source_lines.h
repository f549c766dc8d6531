// From the source text to lines with fields (pass 1).
#pragma once

#include <string_view>
#include <vector>

#include "asm/assembler.h"
#include "asm/symbol_table.h"
#include "common/progress.h"

namespace corvane::assembler {

// The lines with nothing but their source text.
std::vector<AsmLine> ReadLines(std::string_view source);

// Pass 1: fills in label, mnemonic and operands of each line and defines the labels.
void SplitFields(Assembly& assembly, SymbolTable& symbols,
                 const common::ProgressCallback& progress);

// Gives the labels of EQU lines their values. Only a number can be such a value.
void ResolveEquates(Assembly& assembly, SymbolTable& symbols);

}  // namespace corvane::assembler
