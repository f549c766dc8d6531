// What the word in a line's mnemonic field stands for.
#pragma once

#include <cstdint>
#include <string_view>

#include "isa/instruction_set.h"

namespace corvane::assembler {

enum class StatementKind : std::uint8_t { Empty, Org, Equ, Dw, End, Instruction, Unrecognized };

struct Statement {
    StatementKind kind;
    const isa::Instruction* instruction = nullptr;  // the row of an Instruction
};

// Takes the word in upper case.
Statement FindStatement(std::string_view mnemonic);

}  // namespace corvane::assembler
