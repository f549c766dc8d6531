#include "isa/instruction_set.h"

#include <algorithm>
#include <cstddef>

namespace corvane::isa {

using enum Operation;
using enum Group;
using enum OperandForm;

const std::array<Instruction, kInstructionCount> kInstructions = {{
    {Nop, "NOP", Byte, None, 0x0000, 0x0060, 0x20, 1},
    {Return, "RETURN", Control, None, 0x0008, 0x0008, 0x1, 2},
    {Retfie, "RETFIE", Control, None, 0x0009, 0x0009, 0x1, 2},
    {Sleep, "SLEEP", Control, None, 0x0063, 0x0063, 0x1, 1},
    {Clrwdt, "CLRWDT", Control, None, 0x0064, 0x0064, 0x1, 1},
    {Movwf, "MOVWF", Byte, Register, 0x0080, 0x00FF, 0x1, 1},
    {Clrw, "CLRW", Byte, None, 0x0100, 0x017F, 0x1, 1},
    {Clrf, "CLRF", Byte, Register, 0x0180, 0x01FF, 0x1, 1},
    {Subwf, "SUBWF", Byte, RegisterDestination, 0x0200, 0x02FF, 0x1, 1},
    {Decf, "DECF", Byte, RegisterDestination, 0x0300, 0x03FF, 0x1, 1},
    {Iorwf, "IORWF", Byte, RegisterDestination, 0x0400, 0x04FF, 0x1, 1},
    {Andwf, "ANDWF", Byte, RegisterDestination, 0x0500, 0x05FF, 0x1, 1},
    {Xorwf, "XORWF", Byte, RegisterDestination, 0x0600, 0x06FF, 0x1, 1},
    {Addwf, "ADDWF", Byte, RegisterDestination, 0x0700, 0x07FF, 0x1, 1},
    {Movf, "MOVF", Byte, RegisterDestination, 0x0800, 0x08FF, 0x1, 1},
    {Comf, "COMF", Byte, RegisterDestination, 0x0900, 0x09FF, 0x1, 1},
    {Incf, "INCF", Byte, RegisterDestination, 0x0A00, 0x0AFF, 0x1, 1},
    {Decfsz, "DECFSZ", Byte, RegisterDestination, 0x0B00, 0x0BFF, 0x1, 1},
    {Rrf, "RRF", Byte, RegisterDestination, 0x0C00, 0x0CFF, 0x1, 1},
    {Rlf, "RLF", Byte, RegisterDestination, 0x0D00, 0x0DFF, 0x1, 1},
    {Swapf, "SWAPF", Byte, RegisterDestination, 0x0E00, 0x0EFF, 0x1, 1},
    {Incfsz, "INCFSZ", Byte, RegisterDestination, 0x0F00, 0x0FFF, 0x1, 1},
    {Bcf, "BCF", Bit, RegisterBit, 0x1000, 0x13FF, 0x1, 1},
    {Bsf, "BSF", Bit, RegisterBit, 0x1400, 0x17FF, 0x1, 1},
    {Btfsc, "BTFSC", Bit, RegisterBit, 0x1800, 0x1BFF, 0x1, 1},
    {Btfss, "BTFSS", Bit, RegisterBit, 0x1C00, 0x1FFF, 0x1, 1},
    {Call, "CALL", Control, Address11, 0x2000, 0x27FF, 0x1, 2},
    {Goto, "GOTO", Control, Address11, 0x2800, 0x2FFF, 0x1, 2},
    {Movlw, "MOVLW", Control, Literal8, 0x3000, 0x33FF, 0x1, 1},
    {Retlw, "RETLW", Control, Literal8, 0x3400, 0x37FF, 0x1, 2},
    {Iorlw, "IORLW", Control, Literal8, 0x3800, 0x38FF, 0x1, 1},
    {Andlw, "ANDLW", Control, Literal8, 0x3900, 0x39FF, 0x1, 1},
    {Xorlw, "XORLW", Control, Literal8, 0x3A00, 0x3AFF, 0x1, 1},
    {Sublw, "SUBLW", Control, Literal8, 0x3C00, 0x3DFF, 0x1, 1},
    {Addlw, "ADDLW", Control, Literal8, 0x3E00, 0x3FFF, 0x1, 1},
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
