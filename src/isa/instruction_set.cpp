#include "isa/instruction_set.h"

#include <algorithm>
#include <cstddef>

namespace corvane::isa {

const std::array<Instruction, kInstructionCount> kInstructions = {{
    {Operation::Nop, "NOP", OperandForm::None, 0x0000, 0x0060, 0x20, 1},
    {Operation::Return, "RETURN", OperandForm::None, 0x0008, 0x0008, 0x1, 2},
    {Operation::Retfie, "RETFIE", OperandForm::None, 0x0009, 0x0009, 0x1, 2},
    {Operation::Sleep, "SLEEP", OperandForm::None, 0x0063, 0x0063, 0x1, 1},
    {Operation::Clrwdt, "CLRWDT", OperandForm::None, 0x0064, 0x0064, 0x1, 1},
    {Operation::Movwf, "MOVWF", OperandForm::Register, 0x0080, 0x00FF, 0x1, 1},
    {Operation::Clrw, "CLRW", OperandForm::None, 0x0100, 0x017F, 0x1, 1},
    {Operation::Clrf, "CLRF", OperandForm::Register, 0x0180, 0x01FF, 0x1, 1},
    {Operation::Subwf, "SUBWF", OperandForm::RegisterDestination, 0x0200, 0x02FF, 0x1, 1},
    {Operation::Decf, "DECF", OperandForm::RegisterDestination, 0x0300, 0x03FF, 0x1, 1},
    {Operation::Iorwf, "IORWF", OperandForm::RegisterDestination, 0x0400, 0x04FF, 0x1, 1},
    {Operation::Andwf, "ANDWF", OperandForm::RegisterDestination, 0x0500, 0x05FF, 0x1, 1},
    {Operation::Xorwf, "XORWF", OperandForm::RegisterDestination, 0x0600, 0x06FF, 0x1, 1},
    {Operation::Addwf, "ADDWF", OperandForm::RegisterDestination, 0x0700, 0x07FF, 0x1, 1},
    {Operation::Movf, "MOVF", OperandForm::RegisterDestination, 0x0800, 0x08FF, 0x1, 1},
    {Operation::Comf, "COMF", OperandForm::RegisterDestination, 0x0900, 0x09FF, 0x1, 1},
    {Operation::Incf, "INCF", OperandForm::RegisterDestination, 0x0A00, 0x0AFF, 0x1, 1},
    {Operation::Decfsz, "DECFSZ", OperandForm::RegisterDestination, 0x0B00, 0x0BFF, 0x1, 1},
    {Operation::Rrf, "RRF", OperandForm::RegisterDestination, 0x0C00, 0x0CFF, 0x1, 1},
    {Operation::Rlf, "RLF", OperandForm::RegisterDestination, 0x0D00, 0x0DFF, 0x1, 1},
    {Operation::Swapf, "SWAPF", OperandForm::RegisterDestination, 0x0E00, 0x0EFF, 0x1, 1},
    {Operation::Incfsz, "INCFSZ", OperandForm::RegisterDestination, 0x0F00, 0x0FFF, 0x1, 1},
    {Operation::Bcf, "BCF", OperandForm::RegisterBit, 0x1000, 0x13FF, 0x1, 1},
    {Operation::Bsf, "BSF", OperandForm::RegisterBit, 0x1400, 0x17FF, 0x1, 1},
    {Operation::Btfsc, "BTFSC", OperandForm::RegisterBit, 0x1800, 0x1BFF, 0x1, 1},
    {Operation::Btfss, "BTFSS", OperandForm::RegisterBit, 0x1C00, 0x1FFF, 0x1, 1},
    {Operation::Call, "CALL", OperandForm::Address11, 0x2000, 0x27FF, 0x1, 2},
    {Operation::Goto, "GOTO", OperandForm::Address11, 0x2800, 0x2FFF, 0x1, 2},
    {Operation::Movlw, "MOVLW", OperandForm::Literal8, 0x3000, 0x33FF, 0x1, 1},
    {Operation::Retlw, "RETLW", OperandForm::Literal8, 0x3400, 0x37FF, 0x1, 2},
    {Operation::Iorlw, "IORLW", OperandForm::Literal8, 0x3800, 0x38FF, 0x1, 1},
    {Operation::Andlw, "ANDLW", OperandForm::Literal8, 0x3900, 0x39FF, 0x1, 1},
    {Operation::Xorlw, "XORLW", OperandForm::Literal8, 0x3A00, 0x3AFF, 0x1, 1},
    {Operation::Sublw, "SUBLW", OperandForm::Literal8, 0x3C00, 0x3DFF, 0x1, 1},
    {Operation::Addlw, "ADDLW", OperandForm::Literal8, 0x3E00, 0x3FFF, 0x1, 1},
}};

namespace {

std::array<Operation, kWordCount> OperationsOfAllWords() {
    std::array<Operation, kWordCount> operations{};
    operations.fill(Operation::Unrecognized);
    for (const Instruction& row : kInstructions) {
        for (std::size_t word = row.firstWord; word <= row.lastWord; word += row.stride) {
            operations[word] = row.operation;
        }
    }
    return operations;
}

}  // namespace

const Instruction& InstructionOf(Operation operation) {
    return kInstructions[static_cast<std::size_t>(operation)];
}

Operation Classify(int word) {
    static const std::array<Operation, kWordCount> kOperations = OperationsOfAllWords();
    if (word < 0 || word >= kWordCount) {
        return Operation::Unrecognized;
    }
    return kOperations[static_cast<std::size_t>(word)];
}

const Instruction* FindMnemonic(std::string_view mnemonic) {
    const auto* row = std::find_if(kInstructions.begin(), kInstructions.end(),
                                   [&](const Instruction& i) { return i.mnemonic == mnemonic; });
    return row == kInstructions.end() ? nullptr : row;
}

}  // namespace corvane::isa
