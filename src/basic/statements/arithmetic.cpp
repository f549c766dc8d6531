// X = A op B on Bytes or Words
#include <array>

#include "basic/messages.h"
#include "basic/statements/translate.h"

namespace corvane::basic {

using common::Status;

namespace {

struct Operands {
    Variable x;
    Operand a;
    Operand b;

    bool AreWords() const { return x.type == BasicType::Word; }
};

// What a runtime routine does.
struct RoutineCall {
    Routine routine;
    std::string_view pairOfA;
    std::string_view call;
    std::string_view moveLow;  // what brings the low byte of the result into W, if it is not there
    std::string_view moveHigh;
};

void Add(CodeWriter& code, const Operands& operands) {
    const auto& [x, a, b] = operands;
    code.Load(LowByte(a));
    code.AddToW(LowByte(b));
    code.StoreTo(LowByte(x));
    if (operands.AreWords()) {
        code.Load(HighByte(a));
        code.Instruction("BTFSC STATUS,C");
        code.Instruction("ADDLW 0x01");
        code.AddToW(HighByte(b));
        code.StoreTo(HighByte(x));
    }
}

void Subtract(CodeWriter& code, const Operands& operands) {
    const auto& [x, a, b] = operands;
    code.Load(LowByte(b));
    code.SubtractWFrom(LowByte(a));
    code.StoreTo(LowByte(x));
    if (operands.AreWords()) {
        code.Load(HighByte(b));
        code.Instruction("BTFSS STATUS,C");
        code.Instruction("ADDLW 0x01");
        code.SubtractWFrom(HighByte(a));
        code.StoreTo(HighByte(x));
    }
}

void Call(CodeWriter& code, const Operands& operands, const RoutineCall& routine) {
    const auto& [x, a, b] = operands;
    code.LoadPair(routine.pairOfA, a, x.type);
    code.LoadPair("R1", b, x.type);
    code.Instruction(routine.call);
    if (!routine.moveLow.empty()) {
        code.Instruction(routine.moveLow);
    }
    code.StoreTo(LowByte(x));
    if (operands.AreWords()) {
        code.SelectBank(0);
        code.Instruction(routine.moveHigh);
        code.StoreTo(HighByte(x));
    }
}

}  // namespace

struct ArithmeticOperation {
    std::string_view name;
    void (*write)(CodeWriter& code, const Operands& operands);  // null if a routine does it
    RoutineCall routine;
};

namespace {

constexpr std::array<ArithmeticOperation, 5> kOperations = {{
    {"+", Add, {}},
    {"-", Subtract, {}},
    {"*", nullptr, {Routine::Multiplication, "R3", "CALL M001", "", "MOVF R2H,W"}},
    {"/", nullptr, {Routine::Division, "R0", "CALL D001", "", "MOVF R0H,W"}},
    {"Mod", nullptr, {Routine::Division, "R0", "CALL D001", "MOVF R2L,W", "MOVF R2H,W"}},
}};

common::Result<Operands> ReadOperands(const VariableTable& variables,
                                      const Arithmetic& arithmetic) {
    using OperandsResult = common::Result<Operands>;
    const auto x = variables.Find(arithmetic.target);
    if (!x) {
        return OperandsResult::Failure(kIncorrectArgument);
    }
    if (x->type == BasicType::Bit) {
        return OperandsResult::Failure("Bit variables can not be used for arithmetic operations.");
    }
    const auto namedA = variables.Find(arithmetic.a);
    const auto namedB = variables.Find(arithmetic.b);
    for (const auto& named : {namedA, namedB}) {
        if (named && named->type != x->type) {
            return OperandsResult::Failure(kDifferentTypes);
        }
    }
    const auto a = ReadOperand(namedA, arithmetic.a, x->type);
    const auto b = ReadOperand(namedB, arithmetic.b, x->type);
    return a && b ? OperandsResult::Success({*x, *a, *b})
                  : OperandsResult::Failure(kIncorrectArgument);
}

}  // namespace

const ArithmeticOperation* FindArithmeticOperation(std::string_view name) {
    return FindRow(kOperations, name);
}

Status Translate(Translation& translation, const Arithmetic& arithmetic) {
    const auto operands = ReadOperands(translation.variables, arithmetic);
    if (!operands) {
        return Status::Failure(operands.error);
    }
    const ArithmeticOperation& operation = *arithmetic.operation;
    if (operation.write != nullptr) {
        operation.write(translation.code, *operands);
    } else {
        Require(translation.routines, operation.routine.routine);
        Call(translation.code, *operands, operation.routine);
    }
    return Status::Success();
}

}  // namespace corvane::basic
