#include "basic/code_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <variant>

#include "common/number_text.h"

namespace corvane::basic {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kInstructionColumn = 8;
constexpr std::string_view kSetRp0 = "BSF STATUS,RP0";
constexpr std::string_view kSetRp1 = "BSF STATUS,RP1";
constexpr std::string_view kClearRp0 = "BCF STATUS,RP0";
constexpr std::string_view kClearRp1 = "BCF STATUS,RP1";

constexpr int kBanks = 4;
using BankLines = std::array<std::string_view, 2>;

// Indexed by the bank that is selected and by the wanted one.
constexpr std::array<std::array<BankLines, kBanks>, kBanks> kBankLines = {{
    {{{}, {kSetRp0}, {kSetRp1}, {kSetRp0, kSetRp1}}},
    {{{kClearRp0}, {}, {kSetRp1, kClearRp0}, {kSetRp1}}},
    {{{kClearRp1}, {kClearRp1, kSetRp0}, {}, {kSetRp0}}},
    {{{kClearRp1, kClearRp0}, {kClearRp1}, {kClearRp0}, {}}},
}};

// With the address within its bank.
std::string RegisterInstruction(std::string_view mnemonic, Register cell,
                                std::string_view destination) {
    return std::string(mnemonic)
        .append(" ")
        .append(common::PrefixedHex2(cell.address % kBankSize))
        .append(destination);
}

}  // namespace

void CodeWriter::Line(std::string_view text) {
    text_.append(text).append(kLineEnd);
    sourceLines_.push_back(sourceLine_);
}

void CodeWriter::InstructionLine(std::string_view text) {
    Line(text);
    ++programWords_;
    lastIsSkip_ = text.substr(std::min(kInstructionColumn, text.size())).starts_with("BTFS");
}

void CodeWriter::Instruction(std::string_view text) {
    InstructionLine(std::string(kInstructionColumn, ' ').append(text));
}

void CodeWriter::Instruction(std::string_view mnemonic, Literal literal) {
    Instruction(std::string(mnemonic).append(" ").append(common::PrefixedHex2(literal.value)));
}

void CodeWriter::Instruction(std::string_view mnemonic, Register cell,
                             std::string_view destination) {
    SelectBankOf(cell);
    Instruction(RegisterInstruction(mnemonic, cell, destination));
}

void CodeWriter::Instruction(std::string_view mnemonic, const Variable& bit) {
    Instruction(mnemonic, LowByte(bit), "," + std::to_string(bit.bit));
}

void CodeWriter::LabelLine(std::string_view label, std::string_view instruction) {
    std::string line = std::string(label) + ':';
    line.resize(std::max(line.size(), kInstructionColumn), ' ');
    InstructionLine(line.append(instruction));
}

void CodeWriter::LabelLine(std::string_view label, std::string_view mnemonic, Register cell,
                           std::string_view destination) {
    SelectBankOf(cell);
    LabelLine(label, RegisterInstruction(mnemonic, cell, destination));
}

void CodeWriter::LabelLineFromBank(std::string_view label, int bank) {
    LabelLine(label);
    currentBank_ = bank;
    SelectBank(0);
}

void CodeWriter::Load(const ByteOperand& byte) {
    WithByte(byte, "MOVLW", "MOVF");
}

void CodeWriter::AddToW(const ByteOperand& byte) {
    WithByte(byte, "ADDLW", "ADDWF");
}

void CodeWriter::SubtractWFrom(const ByteOperand& byte) {
    WithByte(byte, "SUBLW", "SUBWF");
}

void CodeWriter::LoadInto(std::string_view scratchRegister, const ByteOperand& byte) {
    Load(byte);
    SelectBank(0);
    Instruction(std::string("MOVWF ").append(scratchRegister));
}

void CodeWriter::LoadPair(std::string_view scratchPair, const Operand& operand, BasicType type) {
    const std::string pair(scratchPair);
    LoadInto(pair + "L", LowByte(operand));
    if (type == BasicType::Word) {
        LoadInto(pair + "H", HighByte(operand));
    } else {
        Instruction("CLRF " + pair + "H");
    }
}

void CodeWriter::Goto(std::string_view label) {
    Instruction(std::string("GOTO ").append(label));
}

void CodeWriter::SelectBank(int bank) {
    const int from = std::exchange(currentBank_, bank);
    if (from >= kBanks || bank >= kBanks) {
        return;
    }
    for (const std::string_view line :
         kBankLines[static_cast<std::size_t>(from)][static_cast<std::size_t>(bank)]) {
        if (!line.empty()) {
            BankLine(line);
        }
    }
}

void CodeWriter::SelectBankOf(Register cell) {
    SelectBank(BankOf(cell));
}

bool CodeWriter::TakeBankLineAfterSkip() {
    return std::exchange(bankLineAfterSkip_, false);
}

void CodeWriter::BankLine(std::string_view instruction) {
    bankLineAfterSkip_ |= lastIsSkip_;
    Instruction(instruction);
}

void CodeWriter::WithByte(const ByteOperand& byte, std::string_view literalMnemonic,
                          std::string_view registerMnemonic) {
    if (const auto* const literal = std::get_if<Literal>(&byte)) {
        Instruction(literalMnemonic, *literal);
    } else {
        Instruction(registerMnemonic, std::get<Register>(byte), ",W");
    }
}

}  // namespace corvane::basic
