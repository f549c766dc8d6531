#include "core/execution.h"

#include <algorithm>

#include "core/clock.h"
#include "core/cpu/interrupts.h"
#include "core/registers.h"
#include "core/schedule.h"

namespace corvane::core {

namespace {

// Executes instructions until something is due, pc arrives at a mark, or maxSteps are done; there
// may be less, because a step takes 4 clock cycles or more.
std::int64_t ExecuteInstructions(Processor& processor, std::int64_t maxSteps) {
    ProcessorState& state = processor.state;
    Dispatch& dispatch = processor.dispatch;
    const DecodedWord* const code = dispatch.code.data();
    const std::int64_t start = state.clockCycles;
    const std::int64_t stepsEnd = start + maxSteps * kClocksPerCycle;
    dispatch.sliceEnd = dispatch.attention != 0 ? 0 : std::min(stepsEnd, dispatch.clockDue);
    dispatch.extraCycles = 0;
    const DecodedWord* decoded = nullptr;
    const DecodedWord* next = code + state.pc;
    do {
        decoded = next;
        state.pc = decoded->nextPc;
        InstructionCycle(processor);
        decoded->execute(processor, *decoded);
        next = code + state.pc;
    } while (state.clockCycles < dispatch.sliceEnd && next->stopMarks == 0);
    state.lastInstruction = decoded->word;
    const std::int64_t steps = (state.clockCycles - start) / kClocksPerCycle - dispatch.extraCycles;
    state.instructionCount += steps;
    return steps;
}

// What follows each slice: the peripherals that need it, then the interrupt test.
void FinishSlice(Processor& processor, std::int64_t steps) {
    processor.dispatch.steps += steps;
    if (SomethingIsDue(processor)) {
        AdvancePeripherals(processor);
    }
    processor.dispatch.interruptPending = InterruptPending(processor);
}

}  // namespace

RunResult Run(Processor& processor, std::int64_t maxSteps) {
    ProcessorState& state = processor.state;
    Dispatch& dispatch = processor.dispatch;
    std::int64_t remaining = maxSteps;
    std::uint8_t marks = 0;
    do {
        std::int64_t steps = 1;
        if (dispatch.interruptPending) {
            EnterInterrupt(processor);
        } else {
            const std::int64_t stepsToDue = dispatch.stepDue - dispatch.steps;
            steps = ExecuteInstructions(processor, std::min(remaining, stepsToDue));
        }
        remaining -= steps;
        FinishSlice(processor, steps);
        marks = dispatch.code[static_cast<std::size_t>(state.pc)].stopMarks;
        state.stopRequested = state.stopRequested || (marks & kBeyondMemoryMark) != 0;
    } while (remaining > 0 && marks == 0 && !state.stopRequested);
    CatchUpAll(processor);
    state.dataMemory[kPcl] = static_cast<std::uint8_t>(state.pc);
    return {.steps = maxSteps - remaining, .breakpointReached = (marks & kBreakpointMark) != 0};
}

RunResult ExecuteStep(Processor& processor) {
    return Run(processor, 1);
}

}  // namespace corvane::core
