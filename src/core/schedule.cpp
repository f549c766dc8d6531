#include "core/schedule.h"

#include <algorithm>
#include <bit>

#include "core/cpu/interrupts.h"

namespace corvane::core {

namespace {

bool CountsCycles(const Dispatch& dispatch, std::size_t index) {
    return (dispatch.clocked & MaskOf(index)) != 0;
}

// Comparable with what is in a Standing.
std::int64_t NowFor(const Processor& processor, std::size_t index) {
    const Dispatch& dispatch = processor.dispatch;
    return CountsCycles(dispatch, index) ? processor.state.clockCycles : dispatch.steps;
}

std::size_t FirstOf(PeripheralMask mask) {
    return static_cast<std::size_t>(std::countr_zero(mask));
}

// Without asking when it is due next: that does not change by waiting.
void AdvanceTo(Processor& processor, std::size_t index, std::int64_t now) {
    const Peripheral& peripheral = *processor.peripherals[index];
    Standing& standing = processor.dispatch.standings[index];
    const std::int64_t passed = now - standing.advancedUntil;
    standing.advancedUntil = now;
    if (peripheral.advance != nullptr) {
        const bool countsCycles = CountsCycles(processor.dispatch, index);
        peripheral.advance(processor, countsCycles ? CyclesOf(passed) : passed);
    }
}

void SetDue(Processor& processor, std::size_t index, std::int64_t now) {
    const Peripheral& peripheral = *processor.peripherals[index];
    if (peripheral.nextDue == nullptr) {
        return;
    }
    Dispatch& dispatch = processor.dispatch;
    const std::int64_t next = peripheral.nextDue(processor);
    if (next == kNever) {
        dispatch.standings[index].due = kNever;
        dispatch.counting &= ~MaskOf(index);
    } else {
        dispatch.standings[index].due =
            now + (CountsCycles(dispatch, index) ? next * kClocksPerCycle : next);
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
        const bool isDue = processor.dispatch.standings[index].due <= NowFor(processor, index);
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
        const std::int64_t now = NowFor(processor, index);
        AdvanceTo(processor, index, now);
        SetDue(processor, index, now);
        rest = dispatch.attention & ~(MaskOf(index) | (MaskOf(index) - 1));
    }
    FindEarliest(processor);
}

void CatchUpWithClock(Processor& processor, std::size_t owner) {
    Dispatch& dispatch = processor.dispatch;
    if (processor.state.clockCycles >= dispatch.clockDue) {
        for (PeripheralMask rest = DuePeripherals(processor) & dispatch.clocked; rest != 0;
             rest &= rest - 1) {
            AdvanceTo(processor, FirstOf(rest), processor.state.clockCycles);
            SetDue(processor, FirstOf(rest), processor.state.clockCycles);
        }
        FindEarliest(processor);
        EndSlice(dispatch);  // it may have set an interrupt flag
    }
    AdvanceTo(processor, owner, processor.state.clockCycles);
}

void ActAtOnce(Processor& processor, std::size_t owner) {
    Dispatch& dispatch = processor.dispatch;
    if (dispatch.attention != 0) {
        return AskForLook(dispatch, owner);
    }
    const std::int64_t now = dispatch.steps + StepsOfSlice(processor);
    AdvanceTo(processor, owner, now);
    SetDue(processor, owner, now);
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
        const std::int64_t now = NowFor(processor, index);
        if (dispatch.standings[index].advancedUntil != now) {
            AdvanceTo(processor, index, now);
        }
    }
}

void Reschedule(Processor& processor, std::size_t peripheral) {
    SetDue(processor, peripheral, NowFor(processor, peripheral));
    FindEarliest(processor);
}

void RescheduleAll(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.attention = 0;
    for (std::size_t index = 0; index < processor.peripherals.size(); ++index) {
        const Peripheral& peripheral = *processor.peripherals[index];
        const std::int64_t now = NowFor(processor, index);
        dispatch.standings[index].advancedUntil = now;
        dispatch.attention |= peripheral.advance != nullptr ? MaskOf(index) : 0;
        SetDue(processor, index, now);
    }
    FindEarliest(processor);
}

}  // namespace corvane::core
