// Timer0 and its prescaler. Data sheet: "Timer0 Module".
#include <algorithm>

#include "core/cells.h"
#include "core/peripherals/peripherals.h"

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
    if (ticks == 0) {
        return;
    }
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

void WriteTmr0(Processor& processor, std::size_t cell, int value) {
    StoreMasked(processor, cell, value);
    if (!AnySet(processor.state.dataMemory[kOptionReg], option_reg::kPsa)) {
        processor.state.prescalerCount = 0;
    }
}

void ClaimCells(CellTable& cells, const models::FamilyTraits& /*traits*/) {
    cells.Claim(kTmr0, {.write = WriteTmr0, .followsTime = true});
    cells.Claim(kOptionReg, {.followsTime = true});
}

// Until TMR0 counts.
std::int64_t NextChange(const Processor& processor) {
    const ProcessorState& state = processor.state;
    return IsInternallyClocked(state) ? TicksToNextCount(state) : kNever;
}

// Until it overflows.
std::int64_t NextDue(const Processor& processor) {
    const ProcessorState& state = processor.state;
    if (!IsInternallyClocked(state)) {
        return kNever;
    }
    const std::int64_t countsAfterNext = 0xFF - state.dataMemory[kTmr0];
    return TicksToNextCount(state) + countsAfterNext * PrescalerRate(state);
}

void Advance(Processor& processor, std::int64_t cycles) {
    if (IsInternallyClocked(processor.state)) {
        Count(processor.state, cycles);
    }
}

// RA4/T0CKI. Whether the pin is an input does not matter.
void PinEdge(Processor& processor, models::Pin pin, bool isHigh) {
    const std::uint8_t option = processor.state.dataMemory[kOptionReg];
    const bool countsFalling = AnySet(option, option_reg::kT0se);
    if (pin == models::Pin{0, 4} && AnySet(option, option_reg::kT0cs) && isHigh != countsFalling) {
        Count(processor.state, 1);
    }
}

}  // namespace

const Peripheral kTimer0 = {
    .claimCells = ClaimCells,
    .unit = TimeUnit::InstructionCycles,
    .nextDue = NextDue,
    .nextChange = NextChange,
    .advance = Advance,
    .pinEdge = PinEdge,
};

}  // namespace corvane::core
