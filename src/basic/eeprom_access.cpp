// Read A, D and Write A, D
#include "basic/statements.h"

namespace corvane::basic {

namespace {

bool HasTwoArguments(const Words& words, std::string_view keyword) {
    return Matches(words, {keyword, kAnyWord, kAnyWord}) && words[1].ends_with(',');
}

Operand FindAddress(const VariableTable& variables, const Words& words) {
    return variables.Find(words[1].substr(0, words[1].size() - 1));
}

// A Byte variable or a Byte constant.
Problem CheckByte(Operand& operand, std::string_view message) {
    if (operand.IsConstant()) {
        return CheckConstant(operand, BasicType::Byte);
    }
    return operand.type == BasicType::Byte ? kNoProblem : Problem(message);
}

Problem CheckAddress(Operand& address) {
    return CheckByte(address, "Eeprom address argument must be Byte variable or constant.");
}

void SelectAddress(Translation& translation, const Operand& address) {
    translation.code.Load(LowByte(address));
    translation.code.SelectBankOf(translation.eeprom.eeadr);
    translation.code.Instruction("MOVWF EEADR");
}

// The order that starts a write, then the wait for its end.
void CommandWrite(Translation& translation) {
    CodeWriter& code = translation.code;
    code.SelectBankOf(translation.eeprom.eecon1);
    code.Instruction("BSF EECON1,WREN");
    code.SelectBankOf(translation.eeprom.eecon2);
    code.Instruction("MOVLW 0x55");
    code.Instruction("MOVWF EECON2");
    code.Instruction("MOVLW 0xAA");
    code.Instruction("MOVWF EECON2");
    code.SelectBankOf(translation.eeprom.eecon1);
    code.Instruction("BSF EECON1,WR");
    const std::string waiting = translation.labels.NewLabel();
    code.LabelLine(waiting, "BTFSC EECON1,WR");
    code.Goto(waiting);
    code.Instruction("BCF EECON1,WREN");
}

}  // namespace

bool IsRead(const Words& words) {
    return HasTwoArguments(words, "Read");
}

Problem TranslateRead(Translation& translation, const Words& words) {
    Operand address = FindAddress(translation.variables, words);
    if (const Problem problem = CheckAddress(address)) {
        return problem;
    }
    const Operand data = translation.variables.Find(words[2]);
    if (data.type != BasicType::Byte) {
        return "Eeprom data argument must be Byte variable.";
    }
    CodeWriter& code = translation.code;
    SelectAddress(translation, address);
    code.SelectBankOf(translation.eeprom.eecon1);
    code.Instruction("BSF EECON1,RD");
    code.SelectBankOf(translation.eeprom.eedata);
    code.Instruction("MOVF EEDATA,W");
    code.StoreTo(LowByte(data));
    return kNoProblem;
}

bool IsWrite(const Words& words) {
    return HasTwoArguments(words, "Write");
}

Problem TranslateWrite(Translation& translation, const Words& words) {
    Operand address = FindAddress(translation.variables, words);
    Operand data = translation.variables.Find(words[2]);
    if (const Problem problem = CheckAddress(address)) {
        return problem;
    }
    if (const Problem problem =
            CheckByte(data, "Eeprom data argument must be Byte variable or constant.")) {
        return problem;
    }
    SelectAddress(translation, address);
    translation.code.Load(LowByte(data));
    translation.code.SelectBankOf(translation.eeprom.eedata);
    translation.code.Instruction("MOVWF EEDATA");
    CommandWrite(translation);
    return kNoProblem;
}

}  // namespace corvane::basic
