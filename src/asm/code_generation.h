// From fields to addresses, values and words (passes 2 to 4).
#pragma once

#include "asm/assembler.h"
#include "asm/symbol_table.h"
#include "common/progress.h"

namespace corvane::assembler {

// Pass 2: each line's address. A statement that generates a word takes one address, also when it
// turns out later that its operands are wrong.
void AssignAddresses(Assembly& assembly, const SymbolTable& symbols,
                     const common::ProgressCallback& progress);

// Gives the labels their lines' addresses, except those of EQU lines.
void AssignLabelValues(const Assembly& assembly, SymbolTable& symbols);

// Pass 3: the operands' values.
void ResolveOperands(Assembly& assembly, const SymbolTable& symbols,
                     const common::ProgressCallback& progress);

// Pass 4: checks the operands and makes the words.
void EncodeLines(Assembly& assembly, const common::ProgressCallback& progress);

}  // namespace corvane::assembler
