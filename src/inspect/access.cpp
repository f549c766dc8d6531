#include "inspect/access.h"

#include "core/registers.h"
#include "isa/instruction_set.h"

namespace corvane::inspect {

namespace {

using isa::Operation;

int AddressOf(const Step& step) {
    const int file = isa::RegisterField(step.word);
    return file == 0 ? step.fsr + (step.status & core::status::kIrp) * 2
                     : (step.status & core::status::kBankSelect) * 4 + file;
}

}  // namespace

Access AccessOf(const Step& step) {
    constexpr std::uint8_t kAllBits = 0xFF;
    const Operation operation = isa::Classify(step.word);
    if (operation == Operation::Unrecognized) {
        return {};
    }
    const auto bit = static_cast<std::uint8_t>(1 << isa::BitField(step.word));
    switch (isa::InstructionOf(operation).form) {
        case isa::OperandForm::Register:  // MOVWF and CLRF
            return {AddressOf(step), 0, kAllBits};
        case isa::OperandForm::RegisterDestination:
            return {AddressOf(step), kAllBits,
                    isa::DestinationField(step.word) == 1 ? kAllBits : std::uint8_t{0}};
        case isa::OperandForm::RegisterBit:
            if (operation == Operation::Bcf || operation == Operation::Bsf) {
                return {AddressOf(step), 0, bit};
            }
            return {AddressOf(step), bit, 0};
        default:
            return {};
    }
}

}  // namespace corvane::inspect
