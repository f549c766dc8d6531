// X = Not Y, and X = A op B on Bits
#include <array>
#include <optional>

#include "basic/statements/translate.h"

namespace corvane::basic {

using common::Status;

// W counts the operands whose test does not skip; Z then decides the result.
struct BitOperation {
    std::string_view name;
    std::string_view test;
    std::string_view countSecond;
    std::string_view whenZero;
    std::string_view whenNotZero;
};

namespace {

constexpr const char* kNotBits = "Arguments must be Bit variables.";

constexpr std::array<BitOperation, 6> kOperations = {{
    {"And", "BTFSS", "ADDLW 0x01", "BSF", "BCF"},
    {"Nand", "BTFSS", "ADDLW 0x01", "BCF", "BSF"},
    {"Or", "BTFSC", "IORLW 0x01", "BCF", "BSF"},
    {"Nor", "BTFSC", "IORLW 0x01", "BSF", "BCF"},
    {"Xor", "BTFSC", "XORLW 0x01", "BCF", "BSF"},
    {"Nxor", "BTFSC", "XORLW 0x01", "BSF", "BCF"},
}};

void SetByZ(CodeWriter& code, const Variable& x, std::string_view whenZero,
            std::string_view whenNotZero) {
    code.Instruction("BTFSC STATUS,Z");
    code.Instruction(whenZero, x);
    code.Instruction("BTFSS STATUS,Z");
    code.Instruction(whenNotZero, x);
}

bool IsBit(const std::optional<Variable>& named) {
    return Is(named, BasicType::Bit);
}

}  // namespace

const BitOperation* FindBitOperation(std::string_view name) {
    return FindRow(kOperations, name);
}

Status Translate(Translation& translation, const Negation& negation) {
    const auto x = translation.variables.Find(negation.target);
    const auto y = translation.variables.Find(negation.value);
    if (!IsBit(x) || !IsBit(y)) {
        return Status::Failure(kNotBits);
    }
    CodeWriter& code = translation.code;
    code.Instruction("CLRW");
    code.Instruction("BTFSS", *y);
    code.Instruction("ADDLW 0x01");
    SetByZ(code, *x, "BCF", "BSF");
    return Status::Success();
}

Status Translate(Translation& translation, const BitLogic& logic) {
    const auto x = translation.variables.Find(logic.target);
    const auto a = translation.variables.Find(logic.a);
    const auto b = translation.variables.Find(logic.b);
    if (!IsBit(x) || !IsBit(a) || !IsBit(b)) {
        return Status::Failure(kNotBits);
    }
    const BitOperation& operation = *logic.operation;
    CodeWriter& code = translation.code;
    code.Instruction("CLRW");
    code.Instruction(operation.test, *a);
    code.Instruction("ADDLW 0x01");
    code.Instruction(operation.test, *b);
    code.Instruction(operation.countSecond);
    SetByZ(code, *x, operation.whenZero, operation.whenNotZero);
    return Status::Success();
}

}  // namespace corvane::basic
