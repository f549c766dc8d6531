#include "core/timer0.h"

#include <algorithm>

#include "core/data_memory.h"
#include "core/registers.h"

namespace corvane::core {

namespace {

bool IsInternallyClocked(const ProcessorState& state) {
    return !AnySet(state.dataMemory[kOptionReg], option_reg::kT0cs);
}

// Ticks per count of TMR0: 1, or 2 to 256 through the prescaler.
std::int64_t PrescalerRate(const ProcessorState& state) {
    const std::uint8_t option = state.dataMemory[kOptionReg];
    return AnySet(option, option_reg::kPsa) ? 1 : 2 << (option & option_reg::kPrescalerSelect);
}

// Ticks until TMR0 counts next. The prescaler may stand past a rate that was lowered since.
std::int64_t TicksToNextCount(const ProcessorState& state) {
    const std::int64_t rate = PrescalerRate(state);
    return rate == 1 ? 1 : std::max<std::int64_t>(1, rate - state.prescalerCount);
}

void Count(ProcessorState& state, std::int64_t ticks) {
    const bool isPrescaled = !AnySet(state.dataMemory[kOptionReg], option_reg::kPsa);
    const std::int64_t first = TicksToNextCount(state);
    if (ticks < first) {
        state.prescalerCount += static_cast<int>(ticks);
        return;
    }
    const std::int64_t rate = PrescalerRate(state);
    const std::int64_t counts = 1 + (ticks - first) / rate;
    if (isPrescaled) {
        state.prescalerCount = static_cast<int>((ticks - first) % rate);
    }
    const std::int64_t value = state.dataMemory[kTmr0] + counts;
    state.dataMemory[kTmr0] = static_cast<std::uint8_t>(value);
    if (value > 0xFF) {
        SetBits(state.dataMemory[kIntcon], intcon::kT0if);
    }
}

}  // namespace

void TimerTick(Processor& processor) {
    Count(processor.state, 1);
    ScheduleTimer(processor);
}

void CatchUpTimer(Processor& processor) {
    ProcessorState& state = processor.state;
    Dispatch& dispatch = processor.dispatch;
    const std::int64_t ticks = (state.clockCycles - dispatch.timerCountedUntil) / kClocksPerCycle;
    dispatch.timerCountedUntil = state.clockCycles;
    if (ticks > 0 && IsInternallyClocked(state)) {
        Count(state, ticks);
        if (state.clockCycles >= dispatch.timerOverflowAt) {
            ScheduleTimer(processor);
            RaiseAttention(dispatch, kInterruptAttention);  // T0IF is set
        }
    }
}

void ScheduleTimer(Processor& processor) {
    const ProcessorState& state = processor.state;
    Dispatch& dispatch = processor.dispatch;
    dispatch.timerOverflowAt = kNever;
    if (IsInternallyClocked(state)) {
        const std::int64_t countsAfterNext = 0xFF - state.dataMemory[kTmr0];
        const std::int64_t ticks = TicksToNextCount(state) + countsAfterNext * PrescalerRate(state);
        dispatch.timerOverflowAt = dispatch.timerCountedUntil + ticks * kClocksPerCycle;
    }
    dispatch.sliceEnd = std::min(dispatch.sliceEnd, dispatch.timerOverflowAt);
}

}  // namespace corvane::core
