#include "core/cpu/data_memory.h"

#include "core/cells.h"
#include "core/registers.h"
#include "core/schedule.h"

namespace corvane::core {

int ReadClaimed(Processor& processor, std::size_t cell) {
    const CellTable::Entry& entry = processor.dispatch.cells.EntryOf(cell);
    if (entry.access.followsTime) {
        CatchUpWithClock(processor, entry.owner);
    }
    return entry.access.read != nullptr ? entry.access.read(processor, cell)
                                        : processor.state.dataMemory[cell];
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
    if (entry.access.followsTime && processor.peripherals[entry.owner]->nextDue != nullptr) {
        Reschedule(processor, entry.owner);
    }
    if (entry.access.asksForLook) {
        AskForLook(processor.dispatch, entry.owner);
    } else if (entry.access.actsAtOnce) {
        ActAtOnce(processor, entry.owner);
    }
}

void DeriveCellAccess(Processor& processor) {
    constexpr std::size_t kBankSize = 0x80;
    Dispatch& dispatch = processor.dispatch;
    dispatch.resolvedCells = processor.description.addressMap;
    for (std::size_t indf = 0; indf < dispatch.resolvedCells.size(); indf += kBankSize) {
        dispatch.resolvedCells[indf] = kIndirectCell;
    }
    for (std::size_t index = 0; index < processor.peripherals.size(); ++index) {
        if (const auto claim = processor.peripherals[index]->claimCells; claim != nullptr) {
            dispatch.cells.SetTurn(index);
            claim(dispatch.cells, *processor.traits);
        }
    }
    for (const std::size_t cell : {kPcl, kStatus, kIndirectCell}) {
        dispatch.cells.ClaimForInstructions(cell, kReadEffect | kWriteEffect);
    }
}

}  // namespace corvane::core
