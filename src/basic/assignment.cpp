// X = Y
#include "basic/statements.h"

namespace corvane::basic {

namespace {

void AssignBit(CodeWriter& code, const Operand& x, const Operand& y) {
    code.Bit("BTFSC", y);
    code.Bit("BSF", x);
    code.Bit("BTFSS", y);
    code.Bit("BCF", x);
}

// Byte and Word variables; a Byte has no high byte to take or to give.
void AssignBytes(CodeWriter& code, const Operand& x, const Operand& y) {
    code.Load(LowByte(y));
    code.StoreTo(LowByte(x));
    if (x.type == BasicType::Byte) {
        return;
    }
    if (y.type == BasicType::Byte) {
        code.Clear(HighByte(x));
    } else {
        code.Load(HighByte(y));
        code.StoreTo(HighByte(x));
    }
}

void AssignConstantByte(CodeWriter& code, ByteOperand target, ByteOperand constant, bool clear) {
    if (clear) {
        code.Clear(target);
        return;
    }
    code.SelectBankOf(target.value);
    code.Load(constant);
    code.StoreTo(target);
}

void AssignConstant(CodeWriter& code, const Operand& x, const Operand& constant) {
    if (x.type == BasicType::Bit) {
        code.Bit(constant.value == 1 ? "BSF" : "BCF", x);
        return;
    }
    AssignConstantByte(code, LowByte(x), LowByte(constant), constant.value == 0);
    if (x.type == BasicType::Word) {
        AssignConstantByte(code, HighByte(x), HighByte(constant), constant.value <= 0xFF);
    }
}

Problem CheckTypes(BasicType x, BasicType y) {
    if (x == BasicType::Bit && y == BasicType::Word) {
        return "Word variable can not be assigned to Bit variable.";
    }
    if (x == BasicType::Bit && y == BasicType::Byte) {
        return "Byte variable can not be assigned to Bit variable.";
    }
    if (x == BasicType::Byte && y == BasicType::Bit) {
        return "Bit variable can not be assigned to Byte variable.";
    }
    if (x == BasicType::Word && y == BasicType::Bit) {
        return "Bit variable can not be assigned to Word variable.";
    }
    return kNoProblem;
}

}  // namespace

bool IsAssignment(const Words& words) {
    return Matches(words, {kAnyWord, "=", kAnyWord});
}

Problem TranslateAssignment(Translation& translation, const Words& words) {
    const Operand x = translation.variables.Find(words[0]);
    Operand y = translation.variables.Find(words[2]);
    if (x.type == BasicType::None) {
        return kIncorrectArgument;
    }
    const Problem problem = y.IsConstant() ? CheckConstant(y, x.type) : CheckTypes(x.type, y.type);
    if (problem) {
        return problem;
    }
    if (y.IsConstant()) {
        AssignConstant(translation.code, x, y);
    } else if (x.type == BasicType::Bit) {
        AssignBit(translation.code, x, y);
    } else {
        AssignBytes(translation.code, x, y);
    }
    return kNoProblem;
}

}  // namespace corvane::basic
