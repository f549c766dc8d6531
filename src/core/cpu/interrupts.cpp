#include "core/cpu/interrupts.h"

#include <algorithm>

#include "core/cpu/stack.h"

namespace corvane::core {

namespace {

constexpr int kInterruptVector = 0x0004;

bool IsAsking(const ProcessorState& state, const models::InterruptSource& source) {
    if (source.mask == 0) {
        return false;
    }
    const int flags = state.dataMemory[static_cast<std::size_t>(source.flags)] & source.mask;
    return source.enables == models::kNoRegister
               ? flags != 0
               : (flags & state.dataMemory[static_cast<std::size_t>(source.enables)]) != 0;
}

}  // namespace

bool EnabledPeripheralAsks(const Processor& processor) {
    return std::ranges::any_of(
        processor.traits->interruptSources,
        [&state = processor.state](const auto& source) { return IsAsking(state, source); });
}

void EnterInterrupt(Processor& processor) {
    ProcessorState& state = processor.state;
    state.lastInstruction = kInterruptEntry;
    ClearBits(state.dataMemory[kIntcon], intcon::kGie);
    Push(state, state.pc);
    state.pc = kInterruptVector;
    state.clockCycles += kClocksPerCycle;
}

}  // namespace corvane::core
