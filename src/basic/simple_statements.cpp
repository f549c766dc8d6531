// Declarations, square roots, jumps and waits.
#include <optional>
#include <string>

#include "basic/statements.h"
#include "common/number_text.h"

namespace corvane::basic {

namespace {

constexpr std::string_view kRootBegin = "Sqr(";
constexpr std::string_view kRootEnd = ")";

std::string AddressComment(std::string_view name, const Operand& variable) {
    std::string text = ";       The address of '" + std::string(name) + "' is 0x" +
                       common::HexText(variable.address);
    if (variable.type == BasicType::Bit) {
        text += "," + std::to_string(variable.bit);
    }
    return text;
}

// The argument of a square root into R0H and W.
void LoadRootArgument(CodeWriter& code, const Operand& argument) {
    if (argument.type == BasicType::Byte) {
        code.Load(LowByte(argument));
        code.SelectBank(0);
        code.Instruction("CLRF R0H");
        return;
    }
    code.LoadInto("R0H", HighByte(argument));
    code.Load(LowByte(argument));
    code.SelectBank(0);
}

}  // namespace

bool IsDeclaration(const Words& words) {
    return DeclaredType(words).has_value();
}

Problem TranslateDeclaration(Translation& translation, const Words& words) {
    const std::string_view name = words[1];
    if (const Problem problem = CheckDeclaredName(name, translation.variables)) {
        return problem;
    }
    const std::optional<PlacedVariable> placed = translation.ram.Place(*DeclaredType(words));
    if (!placed) {
        return kNotEnoughRam;
    }
    const std::string quoted = "'" + std::string(name) + "'";
    if (translation.lineHasLabel) {
        translation.Warn(
            "The declaration of " + quoted +
            " follows a label and is not counted; other variables may get its memory.");
    }
    if (placed->isSplit) {
        translation.Warn("The two bytes of " + quoted +
                         " are not adjacent in data memory, but the code takes the high byte from "
                         "the address after the low byte.");
    }
    translation.variables.Add(name, placed->variable);
    translation.code.Line(AddressComment(name, placed->variable));
    return kNoProblem;
}

bool IsSquareRoot(const Words& words) {
    return Matches(words, {kAnyWord, "=", kAnyWord}) && words[2].starts_with(kRootBegin) &&
           words[2].ends_with(kRootEnd);
}

Problem TranslateSquareRoot(Translation& translation, const Words& words) {
    const Operand x = translation.variables.Find(words[0]);
    if (x.type != BasicType::Byte && x.type != BasicType::Word) {
        return "The result must be Byte or Word variable.";
    }
    std::string_view argument = words[2].substr(kRootBegin.size());
    argument.remove_suffix(kRootEnd.size());
    Operand y = translation.variables.Find(argument);
    if (y.type == BasicType::Bit) {
        return "Invalid argument.";
    }
    if (y.IsConstant()) {
        if (const Problem problem = CheckConstant(y, BasicType::Word)) {
            return problem;
        }
    }
    CodeWriter& code = translation.code;
    Require(translation.routines, Routine::SquareRoot);
    LoadRootArgument(code, y);
    code.Instruction("CALL S001");
    code.StoreTo(LowByte(x));
    if (x.type == BasicType::Word) {
        code.Clear(HighByte(x));
    }
    return kNoProblem;
}

bool IsGoto(const Words& words) {
    return Matches(words, {"Goto", kAnyWord});
}

Problem TranslateGoto(Translation& translation, const Words& words) {
    const LineLabels& lineLabels = translation.lineLabels;
    const auto target = lineLabels.find(words[1]);
    if (target == lineLabels.end()) {
        return kIncorrectLabelName;
    }
    translation.code.Goto(target->second);
    return kNoProblem;
}

bool IsWaitMs(const Words& words) {
    return Matches(words, {"WaitMs", kAnyWord});
}

Problem TranslateWaitMs(Translation& translation, const Words& words) {
    Operand x = translation.variables.Find(words[1]);
    if (x.type == BasicType::Bit) {
        return kIncorrectArgument;
    }
    if (x.IsConstant()) {
        if (const Problem problem = CheckConstant(x, BasicType::Word)) {
            return problem;
        }
    }
    CodeWriter& code = translation.code;
    Require(translation.routines, Routine::WaitMs);
    code.LoadPair("R0", x, x.type == BasicType::Byte ? BasicType::Byte : BasicType::Word);
    code.Literal("MOVLW", translation.waitLoopCount);
    code.Instruction("MOVWF R1H");
    code.Instruction("CALL W001");
    return kNoProblem;
}

}  // namespace corvane::basic
