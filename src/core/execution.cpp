#include "core/execution.h"

#include <algorithm>
#include <utility>

#include "core/cpu/interrupts.h"
#include "core/cpu/loops.h"
#include "core/cpu/slice.h"
#include "core/registers.h"
#include "core/schedule.h"

namespace corvane::core {

namespace {

// What follows each slice: the peripherals that need it, then the interrupt test. Returns why the
// run must end, if it must.
int FinishSlice(Processor& processor, std::int64_t steps) {
    ProcessorState& state = processor.state;
    processor.dispatch.steps += steps;
    if (SomethingIsDue(processor)) {
        AdvancePeripherals(processor);
    }
    processor.dispatch.interruptPending = InterruptPending(processor);
    const int marks = processor.dispatch.stopMarks[static_cast<std::size_t>(state.pc)];
    state.stopRequested = state.stopRequested || (marks & kBeyondMemoryMark) != 0;
    return marks;
}

RunResult FinishRun(Processor& processor, std::int64_t steps, int marks) {
    CatchUpAll(processor);
    processor.state.dataMemory[kPcl] = static_cast<std::uint8_t>(processor.state.pc);
    return {.steps = steps, .breakpointReached = (marks & kBreakpointMark) != 0};
}

}  // namespace

RunResult Run(Processor& processor, std::int64_t maxSteps) {
    Dispatch& dispatch = processor.dispatch;
    std::int64_t steps = 0;
    int marks = 0;
    dispatch.loopToWatch = nullptr;
    dispatch.lastStep = std::min(maxSteps, kNever - dispatch.steps) + dispatch.steps;
    do {
        std::int64_t done = 1;
        DecodedWord* const loopToWatch = std::exchange(dispatch.loopToWatch, nullptr);
        if (dispatch.interruptPending) {
            EnterInterrupt(processor);
        } else if (loopToWatch != nullptr && dispatch.attention == 0) {
            done = WatchLoop(processor, loopToWatch);
        } else {
            done = ExecuteSlice(processor);
        }
        steps += done;
        marks = FinishSlice(processor, done);
    } while (steps < maxSteps && marks == 0 && !processor.state.stopRequested);
    return FinishRun(processor, steps, marks);
}

RunResult ExecuteStep(Processor& processor) {
    if (processor.dispatch.interruptPending) {
        EnterInterrupt(processor);
    } else {
        ExecuteInstruction(processor);
    }
    return FinishRun(processor, 1, FinishSlice(processor, 1));
}

}  // namespace corvane::core
