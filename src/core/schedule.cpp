#include "core/schedule.h"

#include <algorithm>
#include <bit>

#include "core/cpu/interrupts.h"

namespace corvane::core {

namespace {

std::size_t FirstOf(PeripheralMask mask) {
    return static_cast<std::size_t>(std::countr_zero(mask));
}

// A peripheral's present time, comparable with what is in its Standing, and what one of its units
// is there, as a power of 2.
struct Time {
    std::int64_t now;
    int unit;
};

Time TimeFor(const Processor& processor, std::size_t index) {
    constexpr int kCycle = std::countr_zero(static_cast<unsigned>(kClocksPerCycle));
    const Dispatch& dispatch = processor.dispatch;
    return (dispatch.clocked & MaskOf(index)) != 0 ? Time{processor.state.clockCycles, kCycle}
                                                   : Time{dispatch.steps, 0};
}

// Without asking when it is due next: that does not change by waiting.
void AdvanceTo(Processor& processor, std::size_t index, Time time) {
    const Peripheral& peripheral = *processor.peripherals[index];
    Standing& standing = processor.dispatch.standings[index];
    const std::int64_t passed = time.now - standing.advancedUntil;
    standing.advancedUntil = time.now;
    if (peripheral.advance != nullptr) {
        peripheral.advance(processor, passed >> time.unit);
    }
}

void SetDue(Processor& processor, std::size_t index, Time time) {
    const Peripheral& peripheral = *processor.peripherals[index];
    if (peripheral.nextDue == nullptr) {
        return;
    }
    Dispatch& dispatch = processor.dispatch;
    ++dispatch.reschedules;
    const std::int64_t next = peripheral.nextDue(processor);
    if (next == kNever) {
        dispatch.standings[index].due = kNever;
        dispatch.counting &= ~MaskOf(index);
    } else {
        dispatch.standings[index].due = time.now + (next << time.unit);
        dispatch.counting |= MaskOf(index);
    }
}

std::int64_t EarliestDue(const Dispatch& dispatch, PeripheralMask peripherals) {
    std::int64_t earliest = kNever;
    for (PeripheralMask rest = peripherals; rest != 0; rest &= rest - 1) {
        earliest = std::min(earliest, dispatch.standings[FirstOf(rest)].due);
    }
    return earliest;
}

void FindEarliest(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.clockDue = EarliestDue(dispatch, dispatch.counting & dispatch.clocked);
    dispatch.stepDue = EarliestDue(dispatch, dispatch.counting & ~dispatch.clocked);
    dispatch.sliceEnd = std::min(dispatch.sliceEnd, dispatch.clockDue);
}

PeripheralMask DuePeripherals(const Processor& processor) {
    PeripheralMask due = 0;
    for (PeripheralMask rest = processor.dispatch.counting; rest != 0; rest &= rest - 1) {
        const std::size_t index = FirstOf(rest);
        const bool isDue = processor.dispatch.standings[index].due <= TimeFor(processor, index).now;
        due |= isDue ? MaskOf(index) : 0;
    }
    return due;
}

}  // namespace

void AdvancePeripherals(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    if (processor.state.clockCycles >= dispatch.clockDue || dispatch.steps >= dispatch.stepDue) {
        dispatch.attention |= DuePeripherals(processor);
    }
    for (PeripheralMask rest = dispatch.attention; rest != 0;) {
        const std::size_t index = FirstOf(rest);
        dispatch.attention &= ~MaskOf(index);
        const Time time = TimeFor(processor, index);
        AdvanceTo(processor, index, time);
        SetDue(processor, index, time);
        rest = dispatch.attention & ~(MaskOf(index) | (MaskOf(index) - 1));
    }
    FindEarliest(processor);
}

void CatchUpWithClock(Processor& processor, std::size_t owner) {
    Dispatch& dispatch = processor.dispatch;
    if (processor.state.clockCycles >= dispatch.clockDue) {
        for (PeripheralMask rest = DuePeripherals(processor) & dispatch.clocked; rest != 0;
             rest &= rest - 1) {
            const Time time = TimeFor(processor, FirstOf(rest));
            AdvanceTo(processor, FirstOf(rest), time);
            SetDue(processor, FirstOf(rest), time);
        }
        FindEarliest(processor);
        EndSlice(dispatch);  // it may have set an interrupt flag
    }
    if (processor.peripherals[owner]->advance != nullptr) {
        AdvanceTo(processor, owner, TimeFor(processor, owner));
    }
}

void CatchUpClocks(Processor& processor) {
    const Dispatch& dispatch = processor.dispatch;
    for (PeripheralMask rest = dispatch.counting & dispatch.clocked; rest != 0; rest &= rest - 1) {
        AdvanceTo(processor, FirstOf(rest), TimeFor(processor, FirstOf(rest)));
    }
}

void NoteRead(const Processor& processor, std::size_t cell, TimedReads& reads) {
    const CellTable::Entry& entry = processor.dispatch.cells.EntryOf(cell);
    if (!entry.access.followsTime) {
        return;
    }
    const Peripheral& owner = *processor.peripherals[entry.owner];
    if (owner.advance != nullptr) {  // else the cell changes only when something is due
        reads.owners |= MaskOf(entry.owner);
        reads.areBounded = reads.areBounded && owner.nextChange != nullptr;
    }
}

Room RoomToRepeat(Processor& processor, PeripheralMask readOwners, std::int64_t stepsMade) {
    const Dispatch& dispatch = processor.dispatch;
    const std::int64_t now = processor.state.clockCycles;
    const std::int64_t lastStep = std::min(dispatch.lastStep, dispatch.stepDue - 1);
    Room room = {dispatch.clockDue - 1 - now, lastStep - dispatch.steps - stepsMade};
    for (PeripheralMask rest = readOwners; rest != 0 && room.clockCycles > 0; rest &= rest - 1) {
        AdvanceTo(processor, FirstOf(rest), TimeFor(processor, FirstOf(rest)));
        const std::int64_t next = processor.peripherals[FirstOf(rest)]->nextChange(processor);
        if (next != kNever) {
            room.clockCycles = std::min(room.clockCycles, next * kClocksPerCycle - 1);
        }
    }
    return room;
}

void ActAtOnce(Processor& processor, std::size_t owner) {
    Dispatch& dispatch = processor.dispatch;
    if (dispatch.attention != 0) {
        return AskForLook(dispatch, owner);
    }
    const std::int64_t now = dispatch.steps + StepsOfSlice(processor);
    AdvanceTo(processor, owner, {now, 0});
    SetDue(processor, owner, {now, 0});
    FindEarliest(processor);
    if (InterruptPending(processor)) {
        EndSlice(dispatch);
    } else if (dispatch.stepDue != kNever) {
        const std::int64_t atLeast = (dispatch.stepDue - now) * kClocksPerCycle;
        dispatch.sliceEnd = std::min(dispatch.sliceEnd, processor.state.clockCycles + atLeast);
    }
}

void CatchUpCounting(Processor& processor) {
    const Dispatch& dispatch = processor.dispatch;
    for (PeripheralMask rest = dispatch.counting; rest != 0; rest &= rest - 1) {
        const std::size_t index = FirstOf(rest);
        const Time time = TimeFor(processor, index);
        if (dispatch.standings[index].advancedUntil != time.now) {
            AdvanceTo(processor, index, time);
        }
    }
}

void Reschedule(Processor& processor, std::size_t peripheral) {
    SetDue(processor, peripheral, TimeFor(processor, peripheral));
    FindEarliest(processor);
}

void RescheduleAll(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.attention = 0;
    for (std::size_t index = 0; index < processor.peripherals.size(); ++index) {
        const Peripheral& peripheral = *processor.peripherals[index];
        const Time time = TimeFor(processor, index);
        dispatch.standings[index].advancedUntil = time.now;
        dispatch.attention |= peripheral.advance != nullptr ? MaskOf(index) : 0;
        SetDue(processor, index, time);
    }
    FindEarliest(processor);
}

}  // namespace corvane::core
