#include "basic/statements/condition.h"

#include <array>
#include <optional>

#include "basic/messages.h"

namespace corvane::basic {

struct Comparator {
    std::string_view name;
    bool subtractsB;             // b - a, or else a - b
    std::string_view skipsGoto;  // after the subtraction
    std::string_view wordCall;
    bool isForBits;
};

namespace {

using BankResult = common::Result<int>;
using common::Status;

constexpr std::array<Comparator, 6> kComparators = {{
    {"=", false, "BTFSS STATUS,Z", "CALL C001", true},
    {"<>", false, "BTFSC STATUS,Z", "CALL C002", true},
    {">", false, "BTFSC STATUS,C", "CALL C003", false},
    {"<", true, "BTFSC STATUS,C", "CALL C004", false},
    {">=", true, "BTFSS STATUS,C", "CALL C005", false},
    {"<=", false, "BTFSS STATUS,C", "CALL C006", false},
}};

// The bank of the target does not depend on the operands': bank 0 is selected before the skip,
// which keeps C and Z.
void SkipOrGoto(CodeWriter& code, std::string_view skip, std::string_view label) {
    code.SelectBank(0);
    code.Instruction(skip);
    code.Goto(label);
}

Status CompareBits(CodeWriter& code, const std::optional<Variable>& a,
                   const std::optional<Variable>& b, const Comparator& comparator,
                   std::string_view label) {
    if (!a || !b) {
        return Status::Failure("For Bit data type comparison both arguments must be variables.");
    }
    if (!comparator.isForBits) {
        return Status::Failure("Operand not allowed for Bit variables.");
    }
    code.Instruction("CLRW");
    code.Instruction("BTFSC", *a);
    code.Instruction("ADDLW 0x01");
    code.Instruction("BTFSC", *b);
    code.Instruction("SUBLW 0x01");
    SkipOrGoto(code, comparator.skipsGoto, label);
    return Status::Success();
}

void CompareBytes(CodeWriter& code, const Operand& a, const Operand& b,
                  const Comparator& comparator, std::string_view label) {
    code.Load(LowByte(comparator.subtractsB ? b : a));
    code.SubtractWFrom(LowByte(comparator.subtractsB ? a : b));
    SkipOrGoto(code, comparator.skipsGoto, label);
}

void CompareWords(CodeWriter& code, const Operand& a, const Operand& b,
                  const Comparator& comparator, std::string_view label) {
    code.LoadPair("R0", a, BasicType::Word);
    code.LoadInto("R1H", HighByte(b));
    code.Load(LowByte(b));
    code.SelectBank(0);
    code.Instruction(comparator.wordCall);
    SkipOrGoto(code, "BTFSS STATUS,Z", label);
}

Status JumpIfComparisonFalse(Translation& translation, const Comparison& comparison,
                             std::string_view label) {
    const auto namedA = translation.variables.Find(comparison.a);
    const auto namedB = translation.variables.Find(comparison.b);
    if (!namedA && !namedB) {
        return Status::Failure(kIncorrectArgument);
    }
    if (namedA && namedB && namedA->type != namedB->type) {
        return Status::Failure(kDifferentTypes);
    }
    const BasicType type = namedA ? namedA->type : namedB->type;
    const Comparator& comparator = *comparison.comparator;
    if (type == BasicType::Bit) {
        return CompareBits(translation.code, namedA, namedB, comparator, label);
    }
    const auto a = ReadOperand(namedA, comparison.a, type);
    const auto b = ReadOperand(namedB, comparison.b, type);
    if (!a || !b) {
        return Status::Failure(kIncorrectArgument);
    }
    if (type == BasicType::Byte) {
        CompareBytes(translation.code, *a, *b, comparator, label);
    } else {
        Require(translation.routines, Routine::Comparison);
        CompareWords(translation.code, *a, *b, comparator, label);
    }
    return Status::Success();
}

BankResult Jump(Translation& translation, const BitTest& test, std::string_view label) {
    const auto x = translation.variables.Find(test.bit);
    if (!Is(x, BasicType::Bit)) {
        return BankResult::Failure("Argument must be a Bit variable.");
    }
    translation.code.Instruction(test.isNegated ? "BTFSC" : "BTFSS", *x);
    translation.code.Goto(label);
    return BankResult::Success(BankOf(LowByte(*x)));
}

BankResult Jump(Translation& translation, const Comparison& comparison, std::string_view label) {
    const Status status = JumpIfComparisonFalse(translation, comparison, label);
    return status ? BankResult::Success(0) : BankResult::Failure(status.error);
}

}  // namespace

const Comparator* FindComparator(std::string_view name) {
    return FindRow(kComparators, name);
}

BankResult JumpIfFalse(Translation& translation, const Condition& condition,
                       std::string_view label) {
    return std::visit([&](const auto& form) { return Jump(translation, form, label); }, condition);
}

}  // namespace corvane::basic
