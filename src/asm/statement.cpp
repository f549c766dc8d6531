#include "asm/statement.h"

namespace corvane::assembler {

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
