#include "core/schedule.h"

#include <algorithm>
#include <bit>

namespace corvane::core {

namespace {

struct Now {
    std::int64_t time;       // comparable with a Standing
    std::int64_t timeOfOne;  // of one unit
};

Now NowFor(const Processor& processor, const Peripheral& peripheral) {
    return peripheral.unit == TimeUnit::Steps ? Now{processor.dispatch.steps, 1}
                                              : Now{processor.state.clockCycles, kClocksPerCycle};
}

bool CountsCycles(const Peripheral& peripheral) {
    return peripheral.unit == TimeUnit::InstructionCycles;
}

std::size_t FirstOf(PeripheralMask mask) {
    return static_cast<std::size_t>(std::countr_zero(mask));
}

// Advances to the present without asking when it is due next: that does not change by waiting.
void CatchUp(Processor& processor, std::size_t index) {
    const Peripheral& peripheral = *processor.peripherals[index];
    if (peripheral.advance == nullptr) {
        return;
    }
    Standing& standing = processor.dispatch.standings[index];
    const Now now = NowFor(processor, peripheral);
    const std::int64_t elapsed = (now.time - standing.advancedUntil) / now.timeOfOne;
    standing.advancedUntil = now.time;
    peripheral.advance(processor, elapsed);
}

void SetDue(Processor& processor, std::size_t index) {
    const Peripheral& peripheral = *processor.peripherals[index];
    if (peripheral.nextDue == nullptr) {
        return;
    }
    Dispatch& dispatch = processor.dispatch;
    Standing& standing = dispatch.standings[index];
    const std::int64_t next = peripheral.nextDue(processor);
    if (next == kNever) {
        standing.due = kNever;
        dispatch.counting &= ~MaskOf(index);
    } else {
        const Now now = NowFor(processor, peripheral);
        standing.due = now.time + next * now.timeOfOne;
        dispatch.counting |= MaskOf(index);
    }
}

void FindEarliest(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.clockDue = kNever;
    dispatch.stepDue = kNever;
    for (PeripheralMask rest = dispatch.counting; rest != 0; rest &= rest - 1) {
        const std::size_t index = FirstOf(rest);
        std::int64_t& earliest =
            CountsCycles(*processor.peripherals[index]) ? dispatch.clockDue : dispatch.stepDue;
        earliest = std::min(earliest, dispatch.standings[index].due);
    }
    dispatch.sliceEnd = std::min(dispatch.sliceEnd, dispatch.clockDue);
}

PeripheralMask DuePeripherals(const Processor& processor) {
    PeripheralMask due = 0;
    for (PeripheralMask rest = processor.dispatch.counting; rest != 0; rest &= rest - 1) {
        const std::size_t index = FirstOf(rest);
        const Now now = NowFor(processor, *processor.peripherals[index]);
        due |= processor.dispatch.standings[index].due <= now.time ? MaskOf(index) : 0;
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
        CatchUp(processor, index);
        SetDue(processor, index);
        rest = dispatch.attention & ~(MaskOf(index) | (MaskOf(index) - 1));
    }
    FindEarliest(processor);
}

void CatchUpWithClock(Processor& processor, std::size_t owner) {
    Dispatch& dispatch = processor.dispatch;
    if (processor.state.clockCycles >= dispatch.clockDue) {
        for (PeripheralMask rest = DuePeripherals(processor); rest != 0; rest &= rest - 1) {
            const std::size_t index = FirstOf(rest);
            if (CountsCycles(*processor.peripherals[index])) {
                CatchUp(processor, index);
                SetDue(processor, index);
            }
        }
        FindEarliest(processor);
        EndSlice(dispatch);  // it may have set an interrupt flag
    }
    CatchUp(processor, owner);
}

void CatchUpAll(Processor& processor) {
    const Dispatch& dispatch = processor.dispatch;
    for (PeripheralMask rest = dispatch.counting; rest != 0; rest &= rest - 1) {
        const std::size_t index = FirstOf(rest);
        const Now now = NowFor(processor, *processor.peripherals[index]);
        if (dispatch.standings[index].advancedUntil != now.time) {
            CatchUp(processor, index);
        }
    }
}

void Reschedule(Processor& processor, std::size_t peripheral) {
    SetDue(processor, peripheral);
    FindEarliest(processor);
}

void RescheduleAll(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.attention = 0;
    for (std::size_t index = 0; index < processor.peripherals.size(); ++index) {
        const Peripheral& peripheral = *processor.peripherals[index];
        dispatch.standings[index].advancedUntil = NowFor(processor, peripheral).time;
        dispatch.attention |= peripheral.advance != nullptr ? MaskOf(index) : 0;
        SetDue(processor, index);
    }
    FindEarliest(processor);
}

}  // namespace corvane::core
