// For V = A To B Step S .. Next V
//
// Every jump to a loop's labels is made with the running variable's bank selected, or with bank 0
// to the exit, where the bank lines that follow lead to bank 0 from either.
#include <utility>

#include "basic/statements.h"

namespace corvane::basic {

namespace {

struct ForHead {
    Operand first;
    Operand last;
    OpenFor loop;
};

Problem CheckOperand(Operand& operand, BasicType type) {
    if (operand.IsConstant()) {
        return CheckConstant(operand, type);
    }
    if (operand.type != type) {
        return "Variables in For statement must be the same data type as running variable.";
    }
    return kNoProblem;
}

Problem ReadHead(const VariableTable& variables, const Words& words, ForHead& head) {
    OpenFor& loop = head.loop;
    loop.variable = variables.Find(words[1]);
    const BasicType type = loop.variable.type;
    if (type != BasicType::Byte && type != BasicType::Word) {
        return "The running variable in For statement must be Byte or Word data type.";
    }
    std::string_view step = words.count == 8 ? words[7] : "1";
    loop.countsDown = step.starts_with('-');
    step.remove_prefix(loop.countsDown ? 1 : 0);
    head.first = variables.Find(words[3]);
    head.last = variables.Find(words[5]);
    loop.step = variables.Find(step);
    for (Operand* operand : {&head.first, &head.last, &loop.step}) {
        if (const Problem problem = CheckOperand(*operand, type)) {
            return problem;
        }
    }
    return kNoProblem;
}

void AssignFirst(CodeWriter& code, const Operand& variable, const Operand& first) {
    if (variable.type == BasicType::Word && first.IsConstant()) {
        code.SelectBankOf(variable.address);
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
    const ByteOperand variable = LowByte(loop.variable);
    code.Load(loop.countsDown ? LowByte(last) : variable);
    code.SubtractWFrom(loop.countsDown ? variable : LowByte(last));
    code.SelectBankOf(loop.variable.address);
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
    code.Register(loop.countsDown ? "SUBWF" : "ADDWF", loop.variable.address, ",F");
    code.Instruction(loop.countsDown ? "BTFSC STATUS,C" : "BTFSS STATUS,C");
}

void StepWordUp(CodeWriter& code, const OpenFor& loop) {
    const int address = loop.variable.address;
    code.Load(LowByte(loop.step));
    code.Register("ADDWF", address, ",F");
    code.Load(HighByte(loop.step));
    code.Instruction("BTFSC STATUS,C");
    code.Instruction("ADDLW 0x01");
    code.SelectBankOf(address);
    code.Instruction("BTFSC STATUS,C");
    code.Goto(loop.exitLabel);
    code.Register("ADDWF", HighByte(loop.variable).value, ",F");
    code.Instruction("BTFSS STATUS,C");
}

void StepWordDown(CodeWriter& code, const OpenFor& loop, std::string_view noBorrowLabel) {
    const int address = loop.variable.address;
    code.Load(LowByte(loop.step));
    code.Register("SUBWF", address, ",F");
    code.Load(HighByte(loop.step));
    code.SelectBankOf(address);
    code.Instruction("BTFSC STATUS,C");
    code.Goto(noBorrowLabel);
    code.Instruction("ADDLW 0x01");
    code.Instruction("BTFSC STATUS,C");
    code.Goto(loop.exitLabel);
    code.LabelRegister(noBorrowLabel, "SUBWF", HighByte(loop.variable).value, ",F");
    code.Instruction("BTFSC STATUS,C");
}

}  // namespace

bool IsFor(const Words& words) {
    return Matches(words, {"For", kAnyWord, "=", kAnyWord, "To", kAnyWord}) ||
           Matches(words, {"For", kAnyWord, "=", kAnyWord, "To", kAnyWord, "Step", kAnyWord});
}

Problem TranslateFor(Translation& translation, const Words& words) {
    ForHead head;
    if (const Problem problem = ReadHead(translation.variables, words, head)) {
        return problem;
    }
    CodeWriter& code = translation.code;
    OpenFor& loop = head.loop;
    loop.topLabel = translation.labels.NewLabel();
    loop.exitLabel = translation.labels.NewLabel();
    AssignFirst(code, loop.variable, head.first);
    code.LabelLine(loop.topLabel);
    if (loop.variable.type == BasicType::Byte) {
        TestByte(code, loop, head.last);
    } else {
        Require(translation.routines, Routine::Comparison);
        TestWord(code, loop, head.last);
    }
    translation.openFors.push_back(std::move(loop));
    return kNoProblem;
}

bool IsNext(const Words& words) {
    return Matches(words, {"Next", kAnyWord});
}

Problem TranslateNext(Translation& translation, const Words& words) {
    if (translation.openFors.empty()) {
        return "Next without For.";
    }
    if (translation.openFors.back().variable.text != words[1]) {
        return kIncorrectArgument;
    }
    const OpenFor loop = std::move(translation.openFors.back());
    translation.openFors.pop_back();
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
    return kNoProblem;
}

}  // namespace corvane::basic
