// X = Y
#include <variant>

#include "basic/messages.h"
#include "basic/statements/translate.h"

namespace corvane::basic {

using common::Status;

namespace {

void AssignBit(CodeWriter& code, const Variable& x, const Variable& y) {
    code.Instruction("BTFSC", y);
    code.Instruction("BSF", x);
    code.Instruction("BTFSS", y);
    code.Instruction("BCF", x);
}

// Byte and Word variables; a Byte has no high byte to take or to give.
void AssignBytes(CodeWriter& code, const Variable& x, const Variable& y) {
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

void AssignLiteral(CodeWriter& code, Register cell, const ByteOperand& literal) {
    code.SelectBankOf(cell);
    code.Load(literal);
    code.StoreTo(cell);
}

// A high byte of 0 is cleared; a low one only if the whole value is 0.
void AssignConstant(CodeWriter& code, const Variable& x, const Operand& constant, int value) {
    if (x.type == BasicType::Bit) {
        code.Instruction(value == 1 ? "BSF" : "BCF", x);
        return;
    }
    if (value == 0) {
        code.Clear(LowByte(x));
    } else {
        AssignLiteral(code, LowByte(x), LowByte(constant));
    }
    if (x.type == BasicType::Byte) {
        return;
    }
    if (value <= 0xFF) {
        code.Clear(HighByte(x));
    } else {
        AssignLiteral(code, HighByte(x), HighByte(constant));
    }
}

Status CheckTypes(BasicType x, BasicType y) {
    if (x == BasicType::Bit && y == BasicType::Word) {
        return Status::Failure("Word variable can not be assigned to Bit variable.");
    }
    if (x == BasicType::Bit && y == BasicType::Byte) {
        return Status::Failure("Byte variable can not be assigned to Bit variable.");
    }
    if (x == BasicType::Byte && y == BasicType::Bit) {
        return Status::Failure("Bit variable can not be assigned to Byte variable.");
    }
    if (x == BasicType::Word && y == BasicType::Bit) {
        return Status::Failure("Bit variable can not be assigned to Word variable.");
    }
    return Status::Success();
}

Status AssignVariable(CodeWriter& code, const Variable& x, const Variable& y) {
    if (Status status = CheckTypes(x.type, y.type); !status) {
        return status;
    }
    if (x.type == BasicType::Bit) {
        AssignBit(code, x, y);
    } else {
        AssignBytes(code, x, y);
    }
    return Status::Success();
}

}  // namespace

Status Translate(Translation& translation, const Assignment& assignment) {
    const auto x = translation.variables.Find(assignment.target);
    if (!x) {
        return Status::Failure(kIncorrectArgument);
    }
    const auto named = translation.variables.Find(assignment.value);
    const auto y = ReadOperand(named, assignment.value, x->type);
    if (!y) {
        return Status::Failure(y.error);
    }
    if (const auto* const constant = std::get_if<Constant>(&*y)) {
        AssignConstant(translation.code, *x, *y, constant->value);
        return Status::Success();
    }
    return AssignVariable(translation.code, *x, *named);
}

}  // namespace corvane::basic
