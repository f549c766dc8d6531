// The 35 instructions of the 14-bit core as one table. The decoder's text, the assembler's encoding
// and operand checks, the executor's dispatch and the editors' keywords all come from it.
// Data sheet: "Instruction Set Summary".
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace corvane::isa {

constexpr int kWordCount = 16384;  // 14-bit program words

enum class Operation : std::uint8_t {
    Nop,
    Return,
    Retfie,
    Sleep,
    Clrwdt,
    Movwf,
    Clrw,
    Clrf,
    Subwf,
    Decf,
    Iorwf,
    Andwf,
    Xorwf,
    Addwf,
    Movf,
    Comf,
    Incf,
    Decfsz,
    Rrf,
    Rlf,
    Swapf,
    Incfsz,
    Bcf,
    Bsf,
    Btfsc,
    Btfss,
    Call,
    Goto,
    Movlw,
    Retlw,
    Iorlw,
    Andlw,
    Xorlw,
    Sublw,
    Addlw,
    Unrecognized,  // not an instruction: every word that no row of the table covers
};

constexpr int kInstructionCount = static_cast<int>(Operation::Unrecognized);

// What follows the mnemonic, and where its value stands in the word.
enum class OperandForm : std::uint8_t {
    None,
    Register,             // f: bits 6..0
    RegisterDestination,  // f and d: bit 7, 0 stores into W, 1 into the register
    RegisterBit,          // f and b: bits 9..7
    Literal8,             // k: bits 7..0
    Address11,            // k: bits 10..0
};

// The parts of the data sheet's table; the last one is that of literal and control instructions.
enum class Group : std::uint8_t { Byte, Bit, Control };

struct Instruction {
    Operation operation;
    std::string_view mnemonic;
    Group group;
    OperandForm form;
    std::uint16_t firstWord;  // the word with all operands 0, which the assembler starts from
    std::uint16_t lastWord;
    std::uint16_t stride;  // distance between the words of the row: 1, but 20h for NOP
    std::uint8_t cycles;   // instruction cycles, without those of a skip or of a write to PCL
};

extern const std::array<Instruction, kInstructionCount> kInstructions;  // in order of firstWord

// The row of an operation other than Unrecognized.
const Instruction& InstructionOf(Operation operation);

// The operation of a program word; Unrecognized also for values outside 0..3FFFh.
Operation Classify(int word);

// The row whose mnemonic this is (upper case), or nullptr.
const Instruction* FindMnemonic(std::string_view mnemonic);

// The operand fields of a word.
constexpr int RegisterField(int word) {
    return word & 0x7F;
}
constexpr int DestinationField(int word) {
    return (word >> 7) & 1;
}
constexpr int BitField(int word) {
    return (word >> 7) & 7;
}
constexpr int Literal8Field(int word) {
    return word & 0xFF;
}
constexpr int Address11Field(int word) {
    return word & 0x7FF;
}

}  // namespace corvane::isa
