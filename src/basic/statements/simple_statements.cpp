// Declarations, square roots, jumps and waits.
#include <optional>
#include <string>

#include "basic/messages.h"
#include "basic/statements/translate.h"
#include "common/number_text.h"

namespace corvane::basic {

using common::Status;

namespace {

std::string AddressComment(std::string_view name, const Variable& variable) {
    std::string text = ";       The address of '" + std::string(name) + "' is 0x" +
                       common::HexText(variable.address);
    if (variable.type == BasicType::Bit) {
        text += "," + std::to_string(variable.bit);
    }
    return text;
}

// The argument into R0H and W.
void LoadRootArgument(CodeWriter& code, const Operand& argument, BasicType type) {
    if (type == BasicType::Word) {
        code.LoadInto("R0H", HighByte(argument));
    }
    code.Load(LowByte(argument));
    code.SelectBank(0);
    if (type == BasicType::Byte) {
        code.Instruction("CLRF R0H");
    }
}

}  // namespace

Status Translate(Translation& translation, const Declaration& declaration) {
    const std::string_view name = declaration.name;
    if (Status status = CheckDeclaredName(name, translation.variables); !status) {
        return status;
    }
    const std::optional<PlacedVariable> placed = translation.ram.Place(declaration.type);
    if (!placed) {
        return Status::Failure(kNotEnoughRam);
    }
    if (placed->isSplit) {
        translation.Warn("The two bytes of '" + std::string(name) +
                         "' are not adjacent in data memory, but the code takes the high byte from "
                         "the address after the low byte.");
    }
    translation.variables.Add(name, placed->variable);
    translation.declared.push_back({std::string(name), placed->variable});
    translation.code.Line(AddressComment(name, placed->variable));
    return Status::Success();
}

Status Translate(Translation& translation, const SquareRoot& root) {
    const auto x = translation.variables.Find(root.target);
    if (!x || x->type == BasicType::Bit) {
        return Status::Failure("The result must be Byte or Word variable.");
    }
    const auto named = translation.variables.Find(root.argument);
    if (Is(named, BasicType::Bit)) {
        return Status::Failure("Invalid argument.");
    }
    const auto y = ReadOperand(named, root.argument, BasicType::Word);
    if (!y) {
        return Status::Failure(y.error);
    }
    CodeWriter& code = translation.code;
    Require(translation.routines, Routine::SquareRoot);
    LoadRootArgument(code, *y, named ? named->type : BasicType::Word);
    code.Instruction("CALL S001");
    code.StoreTo(LowByte(*x));
    if (x->type == BasicType::Word) {
        code.Clear(HighByte(*x));
    }
    return Status::Success();
}

Status Translate(Translation& translation, const Goto& statement) {
    const LineLabels& lineLabels = translation.lineLabels;
    const auto target = lineLabels.find(statement.label);
    if (target == lineLabels.end()) {
        return Status::Failure(kIncorrectLabelName);
    }
    translation.code.Goto(target->second);
    return Status::Success();
}

Status Translate(Translation& translation, const WaitMs& wait) {
    const auto named = translation.variables.Find(wait.time);
    if (Is(named, BasicType::Bit)) {
        return Status::Failure(kIncorrectArgument);
    }
    const auto time = ReadOperand(named, wait.time, BasicType::Word);
    if (!time) {
        return Status::Failure(time.error);
    }
    CodeWriter& code = translation.code;
    Require(translation.routines, Routine::WaitMs);
    code.LoadPair("R0", *time, named ? named->type : BasicType::Word);
    code.Instruction("MOVLW", Literal{translation.waitLoopCount});
    code.Instruction("MOVWF R1H");
    code.Instruction("CALL W001");
    return Status::Success();
}

}  // namespace corvane::basic
