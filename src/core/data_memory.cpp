#include "core/data_memory.h"

#include "core/ports.h"
#include "core/timer0.h"

namespace corvane::core {

namespace {

void SelectBank(Processor& processor) {
    const std::size_t bankSelect = processor.state.dataMemory[kStatus] & status::kBankSelect;
    processor.dispatch.bankOffset = bankSelect * 4;  // RP1:RP0 are bits 6 and 5
}

void JumpThroughPcl(Processor& processor, int value) {
    ProcessorState& state = processor.state;
    state.pc = (state.dataMemory[kPclath] * 0x100 + value) & kProgramCounterMask;
    ExtraCycle(processor);
}

void Store(Processor& processor, std::size_t cell, int value) {
    processor.state.dataMemory[cell] =
        static_cast<std::uint8_t>(value & processor.description.writeMask[cell]);
}

// NOT_TO and NOT_PD belong to the hardware: no write changes them.
void WriteStatus(Processor& processor, int value, FlagBits flagBits) {
    std::uint8_t& cell = processor.state.dataMemory[kStatus];
    const int kept = status::kPowerFlags | (flagBits == FlagBits::Kept ? status::kFlags : 0);
    const int written = value & processor.description.writeMask[kStatus];
    cell = static_cast<std::uint8_t>((written & ~kept) | (cell & kept));
    SelectBank(processor);
}

void WriteTimerRegister(Processor& processor, std::size_t cell, int value) {
    ProcessorState& state = processor.state;
    CatchUpTimer(processor);
    Store(processor, cell, value);
    if (cell == kTmr0 && !AnySet(state.dataMemory[kOptionReg], option_reg::kPsa)) {
        state.prescalerCount = 0;
    }
    ScheduleTimer(processor);
}

void StoreRaising(Processor& processor, std::size_t cell, int value, Attention attention) {
    Store(processor, cell, value);
    RaiseAttention(processor.dispatch, attention);
}

using CellKinds = std::array<CellKind, models::kDataMemorySize + 1>;

void SetPortKinds(CellKinds& kinds, models::ModelFamily family) {
    const auto portCount = static_cast<std::size_t>(models::TraitsOf(family).portCount);
    for (std::size_t port = 0; port < portCount; ++port) {
        const bool isAnalog = HasAnalogInputs(family, port);
        kinds[kPortA + port] = isAnalog ? CellKind::AnalogPort : CellKind::DigitalPort;
        kinds[kTrisA + port] = isAnalog ? CellKind::AnalogTris : CellKind::DigitalTris;
    }
}

void SetPeripheralKinds(CellKinds& kinds, models::ModelFamily family) {
    kinds[static_cast<std::size_t>(models::TraitsOf(family).eecon1)] = CellKind::EepromControl;
    if (family == models::ModelFamily::Pic16F8x) {
        return;
    }
    kinds[kPir1] = CellKind::InterruptControl;
    kinds[kPie1] = CellKind::InterruptControl;
    if (family == models::ModelFamily::Pic16F62x) {
        kinds[kCmcon] = CellKind::AnalogControl;
        kinds[kVrcon] = CellKind::AnalogControl;
        return;
    }
    kinds[kPir2] = CellKind::InterruptControl;
    kinds[kPie2] = CellKind::InterruptControl;
    kinds[kAdcon0] = CellKind::ConverterControl;
    kinds[kAdcon1] = CellKind::AnalogControl;
}

}  // namespace

int ReadRegister(Processor& processor, std::size_t cell) {
    const ProcessorState& state = processor.state;
    switch (processor.dispatch.cellKinds[cell]) {
        case CellKind::AnalogPort:
            return state.portValues[cell - kPortA];
        case CellKind::Pcl:
            return state.pc & 0xFF;
        case CellKind::Tmr0:
        case CellKind::Intcon:
            CatchUpTimer(processor);
            return state.dataMemory[cell];
        default:
            return state.dataMemory[cell];
    }
}

void WriteRegister(Processor& processor, std::size_t cell, int value, FlagBits flagBits) {
    switch (processor.dispatch.cellKinds[cell]) {
        case CellKind::DigitalTris:
            Store(processor, cell, value);
            return UpdateDigitalPort(processor.state, cell - kTrisA);
        case CellKind::AnalogPort:
            return StoreRaising(processor, cell, value, PortAttention(cell - kPortA));
        case CellKind::AnalogTris:
            return StoreRaising(processor, cell, value, PortAttention(cell - kTrisA));
        case CellKind::Status:
            return WriteStatus(processor, value, flagBits);
        case CellKind::Pcl:
            return JumpThroughPcl(processor, value);
        case CellKind::Tmr0:
        case CellKind::OptionReg:
            return WriteTimerRegister(processor, cell, value);
        case CellKind::Intcon:
            CatchUpTimer(processor);
            return StoreRaising(processor, cell, value, kInterruptAttention);
        case CellKind::InterruptControl:
            return StoreRaising(processor, cell, value, kInterruptAttention);
        case CellKind::EepromControl:  // on PIC16F8x EECON1 also holds EEIF
            return StoreRaising(processor, cell, value, kEepromAttention | kInterruptAttention);
        case CellKind::AnalogControl:
            processor.dispatch.analogConfigChanged = true;
            return StoreRaising(processor, cell, value, kAnalogAttention);
        case CellKind::ConverterControl:
            return StoreRaising(processor, cell, value, kAnalogAttention);
        case CellKind::Plain:
        case CellKind::DigitalPort:
        case CellKind::Indirect:
            return Store(processor, cell, value);
    }
}

void DeriveDataMemoryAccess(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.resolvedCells = processor.description.addressMap;
    for (std::size_t bank = 0; bank < 4; ++bank) {
        dispatch.resolvedCells[bank * 0x80] = kIndirectCell;
    }
    SelectBank(processor);

    auto& kinds = dispatch.cellKinds;
    kinds.fill(CellKind::Plain);
    kinds[kIndirectCell] = CellKind::Indirect;
    kinds[kTmr0] = CellKind::Tmr0;
    kinds[kPcl] = CellKind::Pcl;
    kinds[kStatus] = CellKind::Status;
    kinds[kIntcon] = CellKind::Intcon;
    kinds[kOptionReg] = CellKind::OptionReg;
    SetPortKinds(kinds, processor.model->family);
    SetPeripheralKinds(kinds, processor.model->family);
}

}  // namespace corvane::core
