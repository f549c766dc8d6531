#include "disasm/decoder.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "common/number_text.h"
#include "isa/instruction_set.h"

namespace corvane::disasm {

namespace {

constexpr int kStatus = 0x03;
constexpr int kIntcon = 0x0B;

using BitNames = std::array<std::string_view, 8>;  // bit 0 first
constexpr BitNames kStatusBits = {"C", "DC", "Z", "NOT_PD", "NOT_TO", "RP0", "RP1", "IRP"};
constexpr BitNames kIntconBits = {"RBIF", "INTF", "T0IF", "RBIE", "INTE", "T0IE", "PEIE", "GIE"};
constexpr BitNames kNumberedBits = {"0", "1", "2", "3", "4", "5", "6", "7"};

const BitNames& BitNamesOf(int f) {
    switch (f) {
        case kStatus:
            return kStatusBits;
        case kIntcon:
            return kIntconBits;
        default:
            return kNumberedBits;
    }
}

std::string OperandText(isa::OperandForm form, int word) {
    const int f = isa::RegisterField(word);
    switch (form) {
        case isa::OperandForm::None:
            return "";
        case isa::OperandForm::Register:
            return " " + RegisterName(f);
        case isa::OperandForm::RegisterDestination:
            return " " + RegisterName(f) + "," + DestinationName(isa::DestinationField(word));
        case isa::OperandForm::RegisterBit:
            return " " + RegisterName(f) + "," + BitName(isa::BitField(word), f);
        case isa::OperandForm::Literal8:
            return " " + common::PrefixedHex2(isa::Literal8Field(word));
        case isa::OperandForm::Address11:
            return " " + common::PrefixedHex3(isa::Address11Field(word));
    }
    return "";
}

}  // namespace

std::string DecodeInstruction(int word) {
    const isa::Operation operation = isa::Classify(word);
    if (operation == isa::Operation::Unrecognized) {
        return "UNRECOGNIZED";
    }
    const isa::Instruction& instruction = isa::InstructionOf(operation);
    return std::string(instruction.mnemonic) + OperandText(instruction.form, word);
}

std::string RegisterName(int f) {
    switch (f) {
        case 0x00:
            return "INDF";
        case 0x02:
            return "PCL";
        case kStatus:
            return "STATUS";
        case 0x04:
            return "FSR";
        case 0x0A:
            return "PCLATH";
        case kIntcon:
            return "INTCON";
        default:
            return common::PrefixedHex2(f);
    }
}

std::string DestinationName(int d) {
    switch (d) {
        case 0:
            return "W";
        case 1:
            return "F";
        default:
            return "";
    }
}

std::string BitName(int b, int f) {
    return std::string(BitNamesOf(f)[static_cast<std::size_t>(b & 7)]);
}

}  // namespace corvane::disasm
