#include "inspect/quantity.h"

namespace corvane::inspect {

namespace {

std::int64_t CellOf(const core::ProcessorState& state, int cell) {
    return state.dataMemory[static_cast<std::size_t>(cell)];
}

std::int64_t ValueInState(const Quantity& quantity, const core::Processor& processor) {
    const core::ProcessorState& state = processor.state;
    const auto place = static_cast<std::size_t>(quantity.place);
    switch (quantity.kind) {
        case QuantityKind::W:
            return state.w;
        case QuantityKind::Pc:
            return state.pc;
        case QuantityKind::Clocks:
            return state.clockCycles;
        case QuantityKind::Instructions:
            return state.instructionCount;
        case QuantityKind::CellPair:
            return CellOf(state, quantity.place) + 256 * CellOf(state, quantity.second);
        case QuantityKind::CellBit:
            return (state.dataMemory[place] >> quantity.second) & 1;
        case QuantityKind::PinLevel:
            return (state.portValues[place] >> quantity.second) & 1;
        case QuantityKind::Ram:
            return CellOf(state, processor.description.addressMap[place]);
        case QuantityKind::Eeprom:
            return state.eepromMemory[place];
        case QuantityKind::Stack:
            return state.hardwareStack[place];
        default:
            return CellOf(state, quantity.place);
    }
}

}  // namespace

std::int64_t ValueOf(const Quantity& quantity, const Moment& moment) {
    const Measurements& measured = moment.measurements;
    const core::Pin pin = {quantity.place, quantity.second};
    switch (quantity.kind) {
        case QuantityKind::Steps:
            return measured.Steps();
        case QuantityKind::Depth:
            return measured.Depth();
        case QuantityKind::PinHigh:
            return measured.TimesOf(pin).high;
        case QuantityKind::PinLow:
            return measured.TimesOf(pin).low;
        case QuantityKind::PinPeriod:
            return measured.TimesOf(pin).period;
        case QuantityKind::PinEdges:
            return measured.TimesOf(pin).edges;
        case QuantityKind::Count:
            return measured.CountOf(quantity.place);
        default:
            return ValueInState(quantity, moment.processor);
    }
}

IndexRange IndexesOf(QuantityKind kind, const models::Model& model) {
    switch (kind) {
        case QuantityKind::Eeprom:
            return {0, model.eepromBytes - 1};
        case QuantityKind::Stack:
            return {1, core::kStackLevels};
        default:
            return {0, models::kDataMemorySize - 1};
    }
}

int WidthOf(const Quantity& quantity) {
    switch (quantity.kind) {
        case QuantityKind::CellBit:
        case QuantityKind::PinLevel:
            return 1;
        case QuantityKind::W:
        case QuantityKind::Cell:
        case QuantityKind::Ram:
        case QuantityKind::Eeprom:
            return 8;
        case QuantityKind::Pc:
        case QuantityKind::Stack:
            return 13;
        case QuantityKind::CellPair:
            return 16;
        default:
            return 64;
    }
}

}  // namespace corvane::inspect
