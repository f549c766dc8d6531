#include "asm/statement.h"

#include <array>

namespace corvane::assembler {

namespace {

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

}  // namespace

Statement FindStatement(std::string_view mnemonic) {
    if (mnemonic.empty()) {
        return {StatementKind::Empty};
    }
    for (const Directive& directive : kDirectives) {
        if (directive.name == mnemonic) {
            return {directive.kind};
        }
    }
    if (const isa::Instruction* instruction = isa::FindMnemonic(mnemonic)) {
        return {StatementKind::Instruction, instruction};
    }
    return {StatementKind::Unrecognized};
}

}  // namespace corvane::assembler
