#include "inspect/look.h"

#include <array>
#include <cstddef>

#include "core/registers.h"
#include "isa/instruction_set.h"

namespace corvane::inspect {

namespace {

using isa::Operation;

// File addresses, as they stand in an instruction: 7 bits.
using FileAddresses = std::array<bool, 0x80>;

bool StoresIntoRegister(int word) {
    switch (isa::Classify(word)) {
        case Operation::Movwf:
        case Operation::Clrf:
        case Operation::Bcf:
        case Operation::Bsf:
            return true;
        case Operation::Unrecognized:
            return false;
        default:
            return isa::InstructionOf(isa::Classify(word)).form ==
                       isa::OperandForm::RegisterDestination &&
                   isa::DestinationField(word) == 1;
    }
}

bool CallsOrReturns(int word) {
    switch (isa::Classify(word)) {
        case Operation::Call:
        case Operation::Return:
        case Operation::Retlw:
        case Operation::Retfie:
            return true;
        default:
            return false;
    }
}

template <typename Predicate>
Addresses WordsThat(const Chip& chip, Predicate predicate) {
    Addresses addresses;
    for (std::size_t address = 0; address < chip.words.size(); ++address) {
        addresses[address] = predicate(chip.words[address]);
    }
    return addresses;
}

// FSR may point anywhere: file address 0 always counts.
Addresses WritesTo(const Chip& chip, const FileAddresses& files) {
    return WordsThat(chip, [&](int word) {
        const auto file = static_cast<std::size_t>(isa::RegisterField(word));
        return (file == 0 || files[file]) && StoresIntoRegister(word);
    });
}

void AddFilesOfCell(const Chip& chip, int cell, FileAddresses& files) {
    for (std::size_t address = 0; address < chip.description.addressMap.size(); ++address) {
        if (chip.description.addressMap[address] == cell) {
            files[address % files.size()] = true;
        }
    }
}

// Cells that nothing but instructions changes, and only those that name them: RAM, FSR, PCLATH,
// OPTION_REG, and the latches and directions of the ports.
bool OnlyWritesChange(const Chip& chip, int cell) {
    constexpr auto kRegisters =
        std::to_array<std::size_t>({core::kFsr, core::kPclath, core::kOptionReg});
    for (const std::size_t plain : kRegisters) {
        if (static_cast<std::size_t>(cell) == plain) {
            return true;
        }
    }
    const int ports = models::TraitsOf(chip.model.family).portCount;
    const auto isOfPort = [&](std::size_t first) {
        return cell >= static_cast<int>(first) && cell < static_cast<int>(first) + ports;
    };
    if (isOfPort(core::kPortA) || isOfPort(core::kTrisA)) {
        return true;
    }
    for (const models::Gpr& gpr : chip.description.gprList) {
        if (chip.description.addressMap[static_cast<std::size_t>(gpr.address)] == cell) {
            return true;
        }
    }
    return false;
}

void AddCell(const Chip& chip, int cell, Look& look) {
    if (OnlyWritesChange(chip, cell)) {
        look.instructions |= WritesToCell(chip, cell);
    } else {
        look.everyStep = true;
    }
}

void AddEepromWrites(const Chip& chip, Look& look) {
    const models::FamilyTraits& traits = models::TraitsOf(chip.model.family);
    look.eepromWrites = true;
    look.instructions |= WritesToCell(chip, traits.eecon1);
    look.instructions |= WritesToCell(chip, traits.eecon2);
}

void AddQuantity(const Quantity& quantity, const Chip& chip, Look& look) {
    switch (quantity.kind) {
        case QuantityKind::Depth:
        case QuantityKind::Stack:
            look.interruptEntries = true;
            look.instructions |= CallsAndReturns(chip);
            break;
        case QuantityKind::Cell:
        case QuantityKind::CellBit:
            AddCell(chip, quantity.place, look);
            break;
        case QuantityKind::CellPair:
            AddCell(chip, quantity.place, look);
            AddCell(chip, quantity.second, look);
            break;
        case QuantityKind::PinLevel:
        case QuantityKind::PinHigh:
        case QuantityKind::PinLow:
        case QuantityKind::PinPeriod:
        case QuantityKind::PinEdges:
            look.instructions |= WritesToPort(chip, quantity.place);
            break;
        case QuantityKind::Count:
            look.instructions.set(static_cast<std::size_t>(quantity.place));
            break;
        case QuantityKind::Eeprom:
            AddEepromWrites(chip, look);
            break;
        default:
            look.everyStep = true;
            break;
    }
}

}  // namespace

Look& Look::operator|=(const Look& other) {
    everyStep = everyStep || other.everyStep;
    interruptEntries = interruptEntries || other.interruptEntries;
    eepromWrites = eepromWrites || other.eepromWrites;
    instructions |= other.instructions;
    return *this;
}

Look LookAtChanges(std::span<const Quantity> quantities, const Chip& chip) {
    Look look;
    for (const Quantity& quantity : quantities) {
        AddQuantity(quantity, chip, look);
    }
    return look;
}

Look LookToMeasure(std::span<const Quantity> quantities, const Chip& chip) {
    Look look;
    for (const Quantity& quantity : quantities) {
        if (IsMeasured(quantity)) {
            AddQuantity(quantity, chip, look);
        }
    }
    return look;
}

bool IsMeasured(const Quantity& quantity) {
    switch (quantity.kind) {
        case QuantityKind::Depth:
        case QuantityKind::PinHigh:
        case QuantityKind::PinLow:
        case QuantityKind::PinPeriod:
        case QuantityKind::PinEdges:
        case QuantityKind::Count:
            return true;
        default:
            return false;
    }
}

void AddWanted(std::span<const Quantity> quantities, Wanted& wanted) {
    for (const Quantity& quantity : quantities) {
        switch (quantity.kind) {
            case QuantityKind::PinHigh:
            case QuantityKind::PinLow:
            case QuantityKind::PinPeriod:
            case QuantityKind::PinEdges:
                wanted.pins[static_cast<std::size_t>(quantity.place)] |=
                    static_cast<std::uint8_t>(1 << quantity.second);
                break;
            case QuantityKind::Count:
                wanted.counts.set(static_cast<std::size_t>(quantity.place));
                break;
            default:
                break;
        }
    }
}

Addresses CallsAndReturns(const Chip& chip) {
    return WordsThat(chip, CallsOrReturns);
}

Addresses WritesToCell(const Chip& chip, int cell) {
    FileAddresses files{};
    AddFilesOfCell(chip, cell, files);
    return WritesTo(chip, files);
}

// Analog inputs read low: what configures them changes levels too.
Addresses WritesToPort(const Chip& chip, int port) {
    FileAddresses files{};
    AddFilesOfCell(chip, static_cast<int>(core::kPortA) + port, files);
    AddFilesOfCell(chip, static_cast<int>(core::kTrisA) + port, files);
    AddFilesOfCell(chip, static_cast<int>(core::kAdcon1), files);
    AddFilesOfCell(chip, static_cast<int>(core::kCmcon), files);
    return WritesTo(chip, files);
}

}  // namespace corvane::inspect
