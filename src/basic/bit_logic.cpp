// X = Not Y, and X = A op B on Bits
#include <algorithm>
#include <array>

#include "basic/statements.h"

namespace corvane::basic {

namespace {

constexpr std::string_view kNotBits = "Arguments must be Bit variables.";

// W counts the operands whose test does not skip; Z then decides the result.
struct LogicOperation {
    std::string_view name;
    std::string_view test;
    std::string_view countSecond;
    std::string_view whenZero;
    std::string_view whenNotZero;
};

constexpr std::array<LogicOperation, 6> kLogicOperations = {{
    {"And", "BTFSS", "ADDLW 0x01", "BSF", "BCF"},
    {"Nand", "BTFSS", "ADDLW 0x01", "BCF", "BSF"},
    {"Or", "BTFSC", "IORLW 0x01", "BCF", "BSF"},
    {"Nor", "BTFSC", "IORLW 0x01", "BSF", "BCF"},
    {"Xor", "BTFSC", "XORLW 0x01", "BCF", "BSF"},
    {"Nxor", "BTFSC", "XORLW 0x01", "BSF", "BCF"},
}};

const LogicOperation* FindLogicOperation(std::string_view name) {
    const auto* const found =
        std::find_if(kLogicOperations.begin(), kLogicOperations.end(),
                     [name](const LogicOperation& row) { return row.name == name; });
    return found == kLogicOperations.end() ? nullptr : found;
}

void SetByZ(CodeWriter& code, const Operand& x, std::string_view whenZero,
            std::string_view whenNotZero) {
    code.Instruction("BTFSC STATUS,Z");
    code.Bit(whenZero, x);
    code.Instruction("BTFSS STATUS,Z");
    code.Bit(whenNotZero, x);
}

}  // namespace

bool IsNegation(const Words& words) {
    return Matches(words, {kAnyWord, "=", "Not", kAnyWord});
}

Problem TranslateNegation(Translation& translation, const Words& words) {
    const Operand x = translation.variables.Find(words[0]);
    const Operand y = translation.variables.Find(words[3]);
    if (x.type != BasicType::Bit || y.type != BasicType::Bit) {
        return kNotBits;
    }
    CodeWriter& code = translation.code;
    code.Instruction("CLRW");
    code.Bit("BTFSS", y);
    code.Instruction("ADDLW 0x01");
    SetByZ(code, x, "BCF", "BSF");
    return kNoProblem;
}

bool IsBitLogic(const Words& words) {
    return Matches(words, {kAnyWord, "=", kAnyWord, kAnyWord, kAnyWord}) &&
           FindLogicOperation(words[3]) != nullptr;
}

Problem TranslateBitLogic(Translation& translation, const Words& words) {
    const Operand x = translation.variables.Find(words[0]);
    const Operand a = translation.variables.Find(words[2]);
    const Operand b = translation.variables.Find(words[4]);
    for (const Operand* operand : {&x, &a, &b}) {
        if (operand->type != BasicType::Bit) {
            return kNotBits;
        }
    }
    const LogicOperation& operation = *FindLogicOperation(words[3]);
    CodeWriter& code = translation.code;
    code.Instruction("CLRW");
    code.Bit(operation.test, a);
    code.Instruction("ADDLW 0x01");
    code.Bit(operation.test, b);
    code.Instruction(operation.countSecond);
    SetByZ(code, x, operation.whenZero, operation.whenNotZero);
    return kNoProblem;
}

}  // namespace corvane::basic
