// X = A op B on Bytes or Words
#include <algorithm>
#include <array>

#include "basic/statements.h"

namespace corvane::basic {

namespace {

struct Arguments {
    Operand x;
    Operand a;
    Operand b;

    bool IsWord() const { return x.type == BasicType::Word; }
};

// An operation that a runtime routine does.
struct RoutineOperation {
    std::string_view name;
    Routine routine;
    std::string_view pairOfA;
    std::string_view call;
    std::string_view moveLow;  // what brings the low byte of the result into W, if it is not there
    std::string_view moveHigh;
};

constexpr std::array<RoutineOperation, 3> kRoutineOperations = {{
    {"*", Routine::Multiplication, "R3", "CALL M001", "", "MOVF R2H,W"},
    {"/", Routine::Division, "R0", "CALL D001", "", "MOVF R0H,W"},
    {"Mod", Routine::Division, "R0", "CALL D001", "MOVF R2L,W", "MOVF R2H,W"},
}};

Problem CheckArguments(Arguments& arguments) {
    auto& [x, a, b] = arguments;
    if (x.type == BasicType::None) {
        return kIncorrectArgument;
    }
    if (x.type == BasicType::Bit) {
        return "Bit variables can not be used for arithmetic operations.";
    }
    for (const Operand* operand : {&a, &b}) {
        if (!operand->IsConstant() && operand->type != x.type) {
            return kDifferentTypes;
        }
    }
    for (Operand* operand : {&a, &b}) {
        if (!operand->IsConstant()) {
            continue;
        }
        if (const Problem problem = CheckConstant(*operand, x.type)) {
            return problem;
        }
    }
    return kNoProblem;
}

void Add(CodeWriter& code, const Arguments& arguments) {
    const auto& [x, a, b] = arguments;
    code.Load(LowByte(a));
    code.AddToW(LowByte(b));
    code.StoreTo(LowByte(x));
    if (arguments.IsWord()) {
        code.Load(HighByte(a));
        code.Instruction("BTFSC STATUS,C");
        code.Instruction("ADDLW 0x01");
        code.AddToW(HighByte(b));
        code.StoreTo(HighByte(x));
    }
}

void Subtract(CodeWriter& code, const Arguments& arguments) {
    const auto& [x, a, b] = arguments;
    code.Load(LowByte(b));
    code.SubtractWFrom(LowByte(a));
    code.StoreTo(LowByte(x));
    if (arguments.IsWord()) {
        code.Load(HighByte(b));
        code.Instruction("BTFSS STATUS,C");
        code.Instruction("ADDLW 0x01");
        code.SubtractWFrom(HighByte(a));
        code.StoreTo(HighByte(x));
    }
}

void CallRoutine(CodeWriter& code, const Arguments& arguments, const RoutineOperation& operation) {
    const auto& [x, a, b] = arguments;
    code.LoadPair(operation.pairOfA, a, x.type);
    code.LoadPair("R1", b, x.type);
    code.Instruction(operation.call);
    if (!operation.moveLow.empty()) {
        code.Instruction(operation.moveLow);
    }
    code.StoreTo(LowByte(x));
    if (arguments.IsWord()) {
        code.SelectBank(0);
        code.Instruction(operation.moveHigh);
        code.StoreTo(HighByte(x));
    }
}

const RoutineOperation* FindRoutineOperation(std::string_view name) {
    const auto* const found =
        std::find_if(kRoutineOperations.begin(), kRoutineOperations.end(),
                     [name](const RoutineOperation& row) { return row.name == name; });
    return found == kRoutineOperations.end() ? nullptr : found;
}

}  // namespace

bool IsArithmetic(const Words& words) {
    const std::string_view operation = words[3];
    return Matches(words, {kAnyWord, "=", kAnyWord, kAnyWord, kAnyWord}) &&
           (operation == "+" || operation == "-" || FindRoutineOperation(operation) != nullptr);
}

Problem TranslateArithmetic(Translation& translation, const Words& words) {
    const VariableTable& variables = translation.variables;
    Arguments arguments = {variables.Find(words[0]), variables.Find(words[2]),
                           variables.Find(words[4])};
    if (const Problem problem = CheckArguments(arguments)) {
        return problem;
    }
    if (words[3] == "+") {
        Add(translation.code, arguments);
    } else if (words[3] == "-") {
        Subtract(translation.code, arguments);
    } else {
        const RoutineOperation& operation = *FindRoutineOperation(words[3]);
        Require(translation.routines, operation.routine);
        CallRoutine(translation.code, arguments, operation);
    }
    return kNoProblem;
}

}  // namespace corvane::basic
