#include "core/cpu/data_memory.h"

#include "core/cells.h"
#include "core/clock.h"
#include "core/schedule.h"

namespace corvane::core {

namespace {

int ReadPcl(Processor& processor, std::size_t /*cell*/) {
    return processor.state.pc & 0xFF;
}

void JumpThroughPcl(Processor& processor, std::size_t /*cell*/, int value) {
    ProcessorState& state = processor.state;
    state.pc = (state.dataMemory[kPclath] * 0x100 + value) & kProgramCounterMask;
    ExtraCycle(processor);
}

// NOT_TO and NOT_PD belong to the hardware: no write changes them.
void WriteStatus(Processor& processor, int value, FlagBits flagBits) {
    std::uint8_t& cell = processor.state.dataMemory[kStatus];
    const int kept = status::kPowerFlags | (flagBits == FlagBits::Kept ? status::kFlags : 0);
    const int written = value & processor.description.writeMask[kStatus];
    cell = static_cast<std::uint8_t>((written & ~kept) | (cell & kept));
    SelectBank(processor);
}

void WriteClaimed(Processor& processor, std::size_t cell, int value) {
    const CellTable::Entry& entry = processor.dispatch.cells.EntryOf(cell);
    if (entry.access.followsTime) {
        CatchUpWithClock(processor, entry.owner);
    }
    if (entry.access.write != nullptr) {
        entry.access.write(processor, cell, value);
    } else {
        StoreMasked(processor, cell, value);
    }
    if (entry.access.followsTime) {
        Reschedule(processor, entry.owner);
    }
    if (entry.access.asksForLook) {
        processor.dispatch.attention |= MaskOf(entry.owner);
        EndSlice(processor.dispatch);
    }
}

}  // namespace

int ReadRegister(Processor& processor, std::size_t cell) {
    const CellTable& cells = processor.dispatch.cells;
    if ((cells.EffectsOf(cell) & kReadEffect) == 0) {
        return processor.state.dataMemory[cell];
    }
    const CellTable::Entry& entry = cells.EntryOf(cell);
    if (entry.access.followsTime) {
        CatchUpWithClock(processor, entry.owner);
    }
    return entry.access.read != nullptr ? entry.access.read(processor, cell)
                                        : processor.state.dataMemory[cell];
}

void WriteRegister(Processor& processor, std::size_t cell, int value, FlagBits flagBits) {
    if (cell == kStatus) {
        WriteStatus(processor, value, flagBits);
    } else {
        WriteClaimed(processor, cell, value);
    }
}

void DeriveCellAccess(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.resolvedCells = processor.description.addressMap;
    for (std::size_t bank = 0; bank < 4; ++bank) {
        dispatch.resolvedCells[bank * 0x80] = kIndirectCell;
    }
    for (std::size_t index = 0; index < processor.peripherals.size(); ++index) {
        if (const auto claim = processor.peripherals[index]->claimCells; claim != nullptr) {
            dispatch.cells.SetTurn(index);
            claim(dispatch.cells, *processor.traits);
        }
    }
    dispatch.cells.Claim(kPcl, {.read = ReadPcl, .write = JumpThroughPcl});
    dispatch.cells.ClaimForInstructions(kStatus, kWriteEffect);
    dispatch.cells.ClaimForInstructions(kIndirectCell, kReadEffect | kWriteEffect);
}

void SelectBank(Processor& processor) {
    const std::size_t bankSelect = processor.state.dataMemory[kStatus] & status::kBankSelect;
    processor.dispatch.bankOffset = bankSelect * 4;  // RP1:RP0 are bits 6 and 5
}

}  // namespace corvane::core
