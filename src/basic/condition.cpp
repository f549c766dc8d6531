#include "basic/condition.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane::basic {

namespace {

struct Comparison {
    std::string_view operation;
    bool subtractsB;             // b - a, or else a - b
    std::string_view skipsGoto;  // after the subtraction
    std::string_view wordCall;
};

constexpr std::array<Comparison, 6> kComparisons = {{
    {"=", false, "BTFSS STATUS,Z", "CALL C001"},
    {"<>", false, "BTFSC STATUS,Z", "CALL C002"},
    {">", false, "BTFSC STATUS,C", "CALL C003"},
    {"<", true, "BTFSC STATUS,C", "CALL C004"},
    {">=", true, "BTFSS STATUS,C", "CALL C005"},
    {"<=", false, "BTFSS STATUS,C", "CALL C006"},
}};

const Comparison* FindComparison(std::string_view operation) {
    const auto* const found =
        std::find_if(kComparisons.begin(), kComparisons.end(),
                     [operation](const Comparison& row) { return row.operation == operation; });
    return found == kComparisons.end() ? nullptr : found;
}

// The bank of the target does not depend on the operands': bank 0 is selected before the skip,
// which keeps C and Z.
void SkipOrGoto(CodeWriter& code, std::string_view skip, std::string_view label) {
    code.SelectBank(0);
    code.Instruction(skip);
    code.Goto(label);
}

Problem JumpIfBitFalse(Translation& translation, const Condition& condition, std::string_view label,
                       int& bankAtLabel) {
    const Operand x = translation.variables.Find(condition.a);
    if (x.type != BasicType::Bit) {
        return "Argument must be a Bit variable.";
    }
    translation.code.Bit(condition.isNegated ? "BTFSC" : "BTFSS", x);
    translation.code.Goto(label);
    bankAtLabel = BankOf(x.address);
    return kNoProblem;
}

Problem CompareBits(CodeWriter& code, const Operand& a, const Operand& b,
                    const Comparison& comparison, std::string_view label) {
    if (a.type != BasicType::Bit || b.type != BasicType::Bit) {
        return "For Bit data type comparison both arguments must be variables.";
    }
    if (comparison.operation != "=" && comparison.operation != "<>") {
        return "Operand not allowed for Bit variables.";
    }
    code.Instruction("CLRW");
    code.Bit("BTFSC", a);
    code.Instruction("ADDLW 0x01");
    code.Bit("BTFSC", b);
    code.Instruction("SUBLW 0x01");
    SkipOrGoto(code, comparison.skipsGoto, label);
    return kNoProblem;
}

void CompareBytes(CodeWriter& code, const Operand& a, const Operand& b,
                  const Comparison& comparison, std::string_view label) {
    code.Load(LowByte(comparison.subtractsB ? b : a));
    code.SubtractWFrom(LowByte(comparison.subtractsB ? a : b));
    SkipOrGoto(code, comparison.skipsGoto, label);
}

void CompareWords(CodeWriter& code, const Operand& a, const Operand& b,
                  const Comparison& comparison, std::string_view label) {
    code.LoadPair("R0", a, BasicType::Word);
    code.LoadInto("R1H", HighByte(b));
    code.Load(LowByte(b));
    code.SelectBank(0);
    code.Instruction(comparison.wordCall);
    SkipOrGoto(code, "BTFSS STATUS,Z", label);
}

// Checks the operands of a Byte or Word comparison.
Problem CheckOperands(Operand& a, Operand& b, BasicType type) {
    for (Operand* operand : {&a, &b}) {
        if (!operand->IsConstant()) {
            continue;
        }
        if (const Problem problem = CheckConstant(*operand, type)) {
            return problem;
        }
    }
    return kNoProblem;
}

Problem JumpIfComparisonFalse(Translation& translation, const Condition& condition,
                              std::string_view label) {
    Operand a = translation.variables.Find(condition.a);
    Operand b = translation.variables.Find(condition.b);
    if (a.IsConstant() && b.IsConstant()) {
        return kIncorrectArgument;
    }
    if (!a.IsConstant() && !b.IsConstant() && a.type != b.type) {
        return kDifferentTypes;
    }
    const BasicType type = a.IsConstant() ? b.type : a.type;
    const Comparison& comparison = *FindComparison(condition.operation);
    if (type == BasicType::Bit) {
        return CompareBits(translation.code, a, b, comparison, label);
    }
    if (const Problem problem = CheckOperands(a, b, type)) {
        return problem;
    }
    if (type == BasicType::Byte) {
        CompareBytes(translation.code, a, b, comparison, label);
    } else {
        Require(translation.routines, Routine::Comparison);
        CompareWords(translation.code, a, b, comparison, label);
    }
    return kNoProblem;
}

}  // namespace

std::optional<Condition> ReadCondition(const Words& words, std::size_t first, std::size_t count) {
    if (count == 1) {
        return Condition{false, words[first], "", ""};
    }
    if (count == 2 && words[first] == "Not") {
        return Condition{true, words[first + 1], "", ""};
    }
    if (count == 3 && FindComparison(words[first + 1]) != nullptr) {
        return Condition{false, words[first], words[first + 1], words[first + 2]};
    }
    return std::nullopt;
}

Problem JumpIfFalse(Translation& translation, const Condition& condition, std::string_view label,
                    int& bankAtLabel) {
    bankAtLabel = 0;
    return condition.operation.empty() ? JumpIfBitFalse(translation, condition, label, bankAtLabel)
                                       : JumpIfComparisonFalse(translation, condition, label);
}

}  // namespace corvane::basic
