// The assembler text under construction. Every access to a register goes through here, so that the
// right bank is always selected before it.
#pragma once

#include <string>
#include <string_view>

#include "basic/symbols.h"

namespace corvane::basic {

// The data-memory bank of an address.
constexpr int BankOf(int address) {
    return address / 128;
}

class CodeWriter {
  public:
    // A line that is no instruction.
    void Line(std::string_view text);

    // A line that holds an instruction, with its label or indentation.
    void InstructionLine(std::string_view text);

    void Instruction(std::string_view text);

    // An instruction with a label, which takes the first eight columns.
    void LabelLine(std::string_view label, std::string_view instruction = "NOP");

    // A NOP whose label is reached by jumps that leave this bank selected; bank 0 after it.
    void LabelLineFromBank(std::string_view label, int bank);

    // "MOVLW 0x1F"
    void Literal(std::string_view mnemonic, int value);

    // "MOVF 0x0C,W" with the register's bank selected; the destination includes its comma.
    void Register(std::string_view mnemonic, int address, std::string_view destination = "");

    // The same as LabelLine.
    void LabelRegister(std::string_view label, std::string_view mnemonic, int address,
                       std::string_view destination);

    // "BTFSC 0x06,3" with the bit's bank selected.
    void Bit(std::string_view mnemonic, const Operand& bit);

    // Each selects the bank of a register before it uses it.
    void Load(ByteOperand byte);           // W = byte
    void AddToW(ByteOperand byte);         // W = byte + W
    void SubtractWFrom(ByteOperand byte);  // W = byte - W
    void StoreTo(ByteOperand byte);        // byte = W; the byte is a register
    void Clear(ByteOperand byte);          // byte = 0; the byte is a register

    // Loads into a scratch register ("R0L"), or into a pair of them ("R0" for R0L and R0H), whose
    // high byte is cleared for a Byte. Bank 0 is selected then.
    void LoadInto(std::string_view scratchRegister, ByteOperand byte);
    void LoadPair(std::string_view scratchPair, const Operand& operand, BasicType type);

    void Goto(std::string_view label);

    // Selects a bank with as few instructions as possible; banks from 4 on do not exist and need
    // none. Bank 0 is selected at the beginning.
    void SelectBank(int bank);
    void SelectBankOf(int address);

    const std::string& Text() const { return text_; }
    int ProgramWords() const { return programWords_; }  // instructions written so far

    // Whether a bank selection was written directly after a skip since the last call.
    bool TakeBankLineAfterSkip();

  private:
    void BankLine(std::string_view instruction);

    std::string text_;
    int currentBank_ = 0;
    int programWords_ = 0;
    bool lastIsSkip_ = false;
    bool bankLineAfterSkip_ = false;
};

}  // namespace corvane::basic
