#include "app/chip_value.h"

#include <algorithm>
#include <cstddef>

#include "common/number_text.h"
#include "core/registers.h"
#include "core/reset.h"

namespace corvane::app {

namespace {

constexpr int kByte = 0xFF;

// Of a register in data memory.
std::size_t CellOf(const core::Processor& processor, int address) {
    return processor.description.addressMap.at(static_cast<std::size_t>(address));
}

// The label of a special function register has its address before the name: "003h  STATUS".
std::string RegisterName(const core::Processor& processor, int address) {
    const auto& sfrs = processor.description.sfrList;
    const auto sfr = std::ranges::find(sfrs, address, &models::Sfr::address);
    if (sfr == sfrs.end()) {
        return "GPR " + common::Hex3(address);
    }
    constexpr std::string_view kGap = "h  ";
    const std::size_t gap = sfr->label.find(kGap);
    return gap == std::string::npos ? sfr->label : sfr->label.substr(gap + kGap.size());
}

std::string NameOfWhole(const core::Processor& processor, const ValuePlace& place) {
    switch (place.kind) {
        case ValueKind::Pc:
            return "PC";
        case ValueKind::W:
            return "W";
        case ValueKind::Register:
            return RegisterName(processor, place.index);
        case ValueKind::Eeprom:
            return "EEPROM " + common::Hex2(place.index);
        case ValueKind::StackLevel:
            break;
    }
    return "stack level " + std::to_string(place.index);
}

int WholeValue(const core::Processor& processor, const ValuePlace& place) {
    const core::ProcessorState& state = processor.state;
    const auto index = static_cast<std::size_t>(place.index);
    switch (place.kind) {
        case ValueKind::Pc:
            return state.pc;
        case ValueKind::W:
            return state.w;
        case ValueKind::Register:
            return place.index == models::kPrescalerAddress
                       ? state.prescalerCount
                       : state.dataMemory.at(CellOf(processor, place.index));
        case ValueKind::Eeprom:
            return state.eepromMemory.at(index);
        case ValueKind::StackLevel:
            break;
    }
    return state.hardwareStack.at(index);
}

int BitsOfWhole(const core::Processor& processor, const ValuePlace& place) {
    switch (place.kind) {
        case ValueKind::Pc:
            return processor.model->programWords - 1;
        case ValueKind::W:
            return kByte;
        case ValueKind::Register:
            return place.index == models::kPrescalerAddress
                       ? kByte
                       : processor.description.writeMask.at(CellOf(processor, place.index));
        case ValueKind::Eeprom:
            return place.index < processor.model->eepromBytes ? kByte : 0;
        case ValueKind::StackLevel:
            break;
    }
    return core::kProgramCounterMask;
}

void StoreRegister(core::Processor& processor, int address, std::uint8_t value) {
    core::ProcessorState& state = processor.state;
    if (address == models::kPrescalerAddress) {
        state.prescalerCount = value;
        return;
    }
    const std::size_t cell = CellOf(processor, address);
    state.dataMemory.at(cell) = value;
    if (cell == core::kPcl) {
        state.pc = (state.pc & ~kByte) | value;
    }
}

void StoreWhole(core::Processor& processor, const ValuePlace& place, int value) {
    core::ProcessorState& state = processor.state;
    const auto index = static_cast<std::size_t>(place.index);
    const auto byte = static_cast<std::uint8_t>(value);
    switch (place.kind) {
        case ValueKind::Pc:
            state.pc = value & BitsOfWhole(processor, place);  // it may have run past the end
            state.dataMemory.at(core::kPcl) = byte;
            return;
        case ValueKind::W:
            state.w = value;
            return;
        case ValueKind::Register:
            StoreRegister(processor, place.index, byte);
            return;
        case ValueKind::Eeprom:
            state.eepromMemory.at(index) = byte;
            return;
        case ValueKind::StackLevel:
            state.hardwareStack.at(index) = static_cast<std::uint16_t>(value);
            return;
    }
}

}  // namespace

std::string NameOf(const core::Processor& processor, const ValuePlace& place) {
    const std::string whole = NameOfWhole(processor, place);
    return place.bit ? whole + " bit " + std::to_string(*place.bit) : whole;
}

int ValueAt(const core::Processor& processor, const ValuePlace& place) {
    const int whole = WholeValue(processor, place);
    return place.bit ? (whole >> *place.bit) & 1 : whole;
}

int ChangeableBits(const core::Processor& processor, const ValuePlace& place) {
    const int whole = BitsOfWhole(processor, place);
    return place.bit ? (whole >> *place.bit) & 1 : whole;
}

void StoreValue(core::Processor& processor, const ValuePlace& place, int value) {
    const int mask = place.bit ? 1 << *place.bit : BitsOfWhole(processor, place);
    const int bits = (place.bit ? value << *place.bit : value) & mask;
    StoreWhole(processor, place, (WholeValue(processor, place) & ~mask) | bits);
    core::StateChanged(processor);
}

}  // namespace corvane::app
