// What the word in a line's mnemonic field stands for.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "isa/instruction_set.h"

namespace corvane::assembler {

enum class StatementKind : std::uint8_t { Empty, Org, Equ, Dw, End, Instruction, Unrecognized };

struct Statement {
    StatementKind kind;
    const isa::Instruction* instruction = nullptr;  // the row of an Instruction
};

struct Directive {
    std::string_view name;
    StatementKind kind;
};

constexpr std::array<Directive, 4> kDirectives = {{
    {"ORG", StatementKind::Org},
    {"EQU", StatementKind::Equ},
    {"DW", StatementKind::Dw},
    {"END", StatementKind::End},
}};

// Takes the word in upper case.
Statement FindStatement(std::string_view mnemonic);

}  // namespace corvane::assembler
