// The assembler text under construction. Every access to a register goes through here, so that the
// right bank is always selected before it.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "basic/variables.h"

namespace corvane::basic {

constexpr int kBankSize = 128;  // addresses of data memory

// The bank of an address, from 0.
constexpr int BankOf(Register cell) {
    return cell.address / kBankSize;
}

class CodeWriter {
  public:
    // The lines that follow come from this line of the source; from none before the first call and
    // after 0.
    void BeginSourceLine(int number) { sourceLine_ = number; }

    // A line that is no instruction.
    void Line(std::string_view text);

    // A line that holds an instruction, with its label or indentation.
    void InstructionLine(std::string_view text);

    // "CLRW"; "MOVLW 0x1F"; "MOVF 0x0C,W" and "BTFSC 0x06,3" with the bank of the register or Bit
    // selected before it. The destination includes its comma.
    void Instruction(std::string_view text);
    void Instruction(std::string_view mnemonic, Literal literal);
    void Instruction(std::string_view mnemonic, Register cell, std::string_view destination = "");
    void Instruction(std::string_view mnemonic, const Variable& bit);

    // An instruction with a label, which takes the first eight columns.
    void LabelLine(std::string_view label, std::string_view instruction = "NOP");
    void LabelLine(std::string_view label, std::string_view mnemonic, Register cell,
                   std::string_view destination);

    // A NOP whose label is reached by jumps that leave this bank selected; bank 0 after it.
    void LabelLineFromBank(std::string_view label, int bank);

    // Each selects the bank of a register before it uses it.
    void Load(const ByteOperand& byte);           // W = byte
    void AddToW(const ByteOperand& byte);         // W = byte + W
    void SubtractWFrom(const ByteOperand& byte);  // W = byte - W
    void StoreTo(Register cell) { Instruction("MOVWF", cell); }
    void Clear(Register cell) { Instruction("CLRF", cell); }

    // Loads into a scratch register ("R0L"), or into a pair of them ("R0" for R0L and R0H), whose
    // high byte is cleared for a Byte. Bank 0 is selected then.
    void LoadInto(std::string_view scratchRegister, const ByteOperand& byte);
    void LoadPair(std::string_view scratchPair, const Operand& operand, BasicType type);

    void Goto(std::string_view label);

    // Selects a bank with as few instructions as possible; banks from 4 on do not exist and need
    // none. Bank 0 is selected at the beginning.
    void SelectBank(int bank);
    void SelectBankOf(Register cell);

    int ProgramWords() const { return programWords_; }  // instructions written so far

    // Whether a bank selection was written directly after a skip since the last call.
    bool TakeBankLineAfterSkip();

    // All that was written, and the source line of each of its lines.
    std::string TakeText() { return std::move(text_); }
    std::vector<int> TakeSourceLines() { return std::move(sourceLines_); }

  private:
    void BankLine(std::string_view instruction);
    void WithByte(const ByteOperand& byte, std::string_view literalMnemonic,
                  std::string_view registerMnemonic);

    std::string text_;
    std::vector<int> sourceLines_;
    int sourceLine_ = 0;
    int currentBank_ = 0;
    int programWords_ = 0;
    bool lastIsSkip_ = false;
    bool bankLineAfterSkip_ = false;
};

}  // namespace corvane::basic
