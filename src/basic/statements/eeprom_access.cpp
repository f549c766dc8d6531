// Read A, D and Write A, D
#include <string>

#include "basic/statements/translate.h"

namespace corvane::basic {

using common::Status;

namespace {

using OperandResult = common::Result<Operand>;

// A Byte variable or a Byte constant.
OperandResult ReadByte(const VariableTable& variables, std::string_view word,
                       const char* otherTypeMessage) {
    const auto named = variables.Find(word);
    if (named && named->type != BasicType::Byte) {
        return OperandResult::Failure(otherTypeMessage);
    }
    return ReadOperand(named, word, BasicType::Byte);
}

OperandResult ReadAddress(const VariableTable& variables, std::string_view word) {
    return ReadByte(variables, word, "Eeprom address argument must be Byte variable or constant.");
}

void SelectAddress(Translation& translation, const Operand& address) {
    translation.code.Load(LowByte(address));
    translation.code.SelectBankOf({translation.eeprom.eeadr});
    translation.code.Instruction("MOVWF EEADR");
}

// The order that starts a write, then the wait for its end.
void CommandWrite(Translation& translation) {
    CodeWriter& code = translation.code;
    code.SelectBankOf({translation.eeprom.eecon1});
    code.Instruction("BSF EECON1,WREN");
    code.SelectBankOf({translation.eeprom.eecon2});
    code.Instruction("MOVLW 0x55");
    code.Instruction("MOVWF EECON2");
    code.Instruction("MOVLW 0xAA");
    code.Instruction("MOVWF EECON2");
    code.SelectBankOf({translation.eeprom.eecon1});
    code.Instruction("BSF EECON1,WR");
    const std::string waiting = translation.labels.NewLabel();
    code.LabelLine(waiting, "BTFSC EECON1,WR");
    code.Goto(waiting);
    code.Instruction("BCF EECON1,WREN");
}

}  // namespace

Status Translate(Translation& translation, const Read& statement) {
    const auto address = ReadAddress(translation.variables, statement.address);
    if (!address) {
        return Status::Failure(address.error);
    }
    const auto data = translation.variables.Find(statement.data);
    if (!Is(data, BasicType::Byte)) {
        return Status::Failure("Eeprom data argument must be Byte variable.");
    }
    CodeWriter& code = translation.code;
    SelectAddress(translation, *address);
    code.SelectBankOf({translation.eeprom.eecon1});
    code.Instruction("BSF EECON1,RD");
    code.SelectBankOf({translation.eeprom.eedata});
    code.Instruction("MOVF EEDATA,W");
    code.StoreTo(LowByte(*data));
    return Status::Success();
}

Status Translate(Translation& translation, const Write& statement) {
    const auto address = ReadAddress(translation.variables, statement.address);
    if (!address) {
        return Status::Failure(address.error);
    }
    const auto data = ReadByte(translation.variables, statement.data,
                               "Eeprom data argument must be Byte variable or constant.");
    if (!data) {
        return Status::Failure(data.error);
    }
    SelectAddress(translation, *address);
    translation.code.Load(LowByte(*data));
    translation.code.SelectBankOf({translation.eeprom.eedata});
    translation.code.Instruction("MOVWF EEDATA");
    CommandWrite(translation);
    return Status::Success();
}

}  // namespace corvane::basic
