// For V = A To B Step S .. Next V
//
// Every jump to a loop's labels is made with the running variable's bank selected, or with bank 0
// to the exit, where the bank lines that follow lead to bank 0 from either.
#include <optional>
#include <utility>

#include "basic/messages.h"
#include "basic/statements/translate.h"

namespace corvane::basic {

using common::Status;

namespace {

using OperandResult = common::Result<Operand>;

OperandResult ReadOfType(const VariableTable& variables, std::string_view word, BasicType type) {
    const auto named = variables.Find(word);
    if (named && named->type != type) {
        return OperandResult::Failure(
            "Variables in For statement must be the same data type as running variable.");
    }
    return ReadOperand(named, word, type);
}

void AssignFirst(CodeWriter& code, const Variable& variable, const Operand& first) {
    if (variable.type == BasicType::Word && std::holds_alternative<Constant>(first)) {
        code.SelectBankOf(LowByte(variable));
    }
    code.Load(LowByte(first));
    code.StoreTo(LowByte(variable));
    if (variable.type == BasicType::Word) {
        code.Load(HighByte(first));
        code.StoreTo(HighByte(variable));
    }
}

// Leaves a Byte loop when the variable has passed the last value.
void TestByte(CodeWriter& code, const OpenFor& loop, const Operand& last) {
    const Register variable = LowByte(loop.variable);
    code.Load(loop.countsDown ? LowByte(last) : variable);
    code.SubtractWFrom(loop.countsDown ? variable : LowByte(last));
    code.SelectBankOf(variable);
    code.Instruction("BTFSS STATUS,C");
    code.Goto(loop.exitLabel);
}

void TestWord(CodeWriter& code, const OpenFor& loop, const Operand& last) {
    code.LoadPair("R0", loop.variable, BasicType::Word);
    code.LoadInto("R1H", HighByte(last));
    code.Load(LowByte(last));
    code.SelectBank(0);
    code.Instruction(loop.countsDown ? "CALL C005" : "CALL C006");
    code.Instruction("BTFSS STATUS,Z");
    code.Goto(loop.exitLabel);
}

// The steps end with the skip that guards the jump to the top, taken unless the range was left.
void StepByte(CodeWriter& code, const OpenFor& loop) {
    code.Load(LowByte(loop.step));
    code.Instruction(loop.countsDown ? "SUBWF" : "ADDWF", LowByte(loop.variable), ",F");
    code.Instruction(loop.countsDown ? "BTFSC STATUS,C" : "BTFSS STATUS,C");
}

void StepWordUp(CodeWriter& code, const OpenFor& loop) {
    const Register low = LowByte(loop.variable);
    code.Load(LowByte(loop.step));
    code.Instruction("ADDWF", low, ",F");
    code.Load(HighByte(loop.step));
    code.Instruction("BTFSC STATUS,C");
    code.Instruction("ADDLW 0x01");
    code.SelectBankOf(low);
    code.Instruction("BTFSC STATUS,C");
    code.Goto(loop.exitLabel);
    code.Instruction("ADDWF", HighByte(loop.variable), ",F");
    code.Instruction("BTFSS STATUS,C");
}

void StepWordDown(CodeWriter& code, const OpenFor& loop, std::string_view noBorrowLabel) {
    const Register low = LowByte(loop.variable);
    code.Load(LowByte(loop.step));
    code.Instruction("SUBWF", low, ",F");
    code.Load(HighByte(loop.step));
    code.SelectBankOf(low);
    code.Instruction("BTFSC STATUS,C");
    code.Goto(noBorrowLabel);
    code.Instruction("ADDLW 0x01");
    code.Instruction("BTFSC STATUS,C");
    code.Goto(loop.exitLabel);
    code.LabelLine(noBorrowLabel, "SUBWF", HighByte(loop.variable), ",F");
    code.Instruction("BTFSC STATUS,C");
}

}  // namespace

Status Translate(Translation& translation, const For& statement) {
    const VariableTable& variables = translation.variables;
    const auto variable = variables.Find(statement.variable);
    if (!variable || variable->type == BasicType::Bit) {
        return Status::Failure(
            "The running variable in For statement must be Byte or Word data type.");
    }
    const auto first = ReadOfType(variables, statement.first, variable->type);
    const auto last = ReadOfType(variables, statement.last, variable->type);
    const auto step = ReadOfType(variables, statement.step, variable->type);
    for (const auto* operand : {&first, &last, &step}) {
        if (!*operand) {
            return Status::Failure(operand->error);
        }
    }
    CodeWriter& code = translation.code;
    OpenFor loop = {translation.labels.NewLabel(),
                    translation.labels.NewLabel(),
                    statement.variable,
                    *variable,
                    *step.value,
                    statement.countsDown};
    AssignFirst(code, *variable, *first);
    code.LabelLine(loop.topLabel);
    if (variable->type == BasicType::Byte) {
        TestByte(code, loop, *last);
    } else {
        Require(translation.routines, Routine::Comparison);
        TestWord(code, loop, *last);
    }
    translation.open.fors.push_back(std::move(loop));
    return Status::Success();
}

Status Translate(Translation& translation, const Next& statement) {
    std::vector<OpenFor>& open = translation.open.fors;
    if (open.empty()) {
        return Status::Failure("Next without For.");
    }
    if (open.back().name != statement.variable) {
        return Status::Failure(kIncorrectArgument);
    }
    const OpenFor loop = std::move(open.back());
    open.pop_back();
    CodeWriter& code = translation.code;
    if (loop.variable.type == BasicType::Byte) {
        StepByte(code, loop);
    } else if (loop.countsDown) {
        StepWordDown(code, loop, translation.labels.NewLabel());
    } else {
        StepWordUp(code, loop);
    }
    code.Goto(loop.topLabel);
    code.LabelLine(loop.exitLabel);
    return Status::Success();
}

}  // namespace corvane::basic
