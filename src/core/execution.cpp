#include "core/execution.h"

#include <algorithm>

#include "core/adc.h"
#include "core/comparators.h"
#include "core/data_memory.h"
#include "core/eeprom.h"
#include "core/instructions.h"
#include "core/interrupts.h"
#include "core/ports.h"
#include "core/registers.h"
#include "core/timer0.h"

namespace corvane::core {

namespace {

using models::ModelFamily;

// Analog levels and comparisons of this step. Adds the ports that its configuration changes.
void UpdateAnalog(Processor& processor, Attention& ports) {
    const bool configChanged = processor.dispatch.analogConfigChanged;
    processor.dispatch.analogConfigChanged = false;
    if (models::IsPic16F87x(processor.model->family)) {
        if (configChanged) {
            AdcPortConfig(processor.state);
            ports |= kAllPortsAttention;
        }
        AdcUpdate(processor);
    } else if (processor.model->family == ModelFamily::Pic16F62x) {
        if (configChanged) {
            VoltageReferenceUpdate(processor.state);
            ComparatorPortConfig(processor.state);
            ports |= kPortAttention;
        }
        ComparatorUpdate(processor.state);
    }
}

// Steps until an operation that counts 4 clock cycles a step reaches its time; 1 or more.
std::int64_t StepsUntil(int time, int elapsed) {
    return std::max(1, (time - elapsed + kClocksPerCycle - 1) / kClocksPerCycle);
}

std::int64_t StepsToDue(const Processor& processor) {
    const ProcessorState& state = processor.state;
    std::int64_t steps = kNever;
    if (state.adElapsed != 0) {
        steps = StepsUntil(processor.adConversionTime, state.adElapsed);
    }
    if (state.eeWriteBusy) {
        steps = std::min(steps, StepsUntil(processor.eepromWriteTime, state.eeWriteElapsed));
    }
    return steps;
}

// Steps in which a conversion or an EEPROM write did nothing but go on.
void CountQuietSteps(ProcessorState& state, std::int64_t steps) {
    const int clocks = static_cast<int>(steps * kClocksPerCycle);
    if (state.adElapsed != 0) {
        state.adElapsed += clocks;
    }
    if (state.eeWriteBusy) {
        state.eeWriteElapsed += clocks;
    }
}

// What is due at the end of a step, in the order in which the chip does it: the peripherals, the
// ports, the interrupt test. Of the steps since the last call only this one was not quiet.
void FinishSteps(Processor& processor, std::int64_t steps) {
    ProcessorState& state = processor.state;
    Dispatch& dispatch = processor.dispatch;
    CountQuietSteps(state, steps - 1);
    if (state.clockCycles >= dispatch.timerOverflowAt) {
        CatchUpTimer(processor);
    }
    Attention ports = dispatch.attention & kAllPortsAttention;
    Attention left = 0;
    if ((dispatch.attention & kAnalogAttention) != 0 || state.adElapsed != 0) {
        UpdateAnalog(processor, ports);
    }
    if ((dispatch.attention & kEepromAttention) != 0 || state.eeWriteBusy) {
        EepromUpdate(processor);
        left |= state.eeUnlockState != 0 ? kEepromAttention : Attention{0};
    }
    if (ports != 0) {
        UpdatePorts(processor, ports);
        // The comparators see the new levels in the next step.
        const bool hasComparators = processor.model->family == ModelFamily::Pic16F62x;
        left |= hasComparators ? kAnalogAttention : Attention{0};
    }
    dispatch.attention = left;
    dispatch.interruptPending = InterruptPending(processor);
    dispatch.stepsToDue = StepsToDue(processor);
}

// Executes instructions until something is due, pc arrives at a mark, or maxSteps are done; there
// may be less, because a step takes 4 clock cycles or more.
std::int64_t ExecuteInstructions(Processor& processor, std::int64_t maxSteps) {
    ProcessorState& state = processor.state;
    Dispatch& dispatch = processor.dispatch;
    const DecodedWord* const code = dispatch.code.data();
    const std::int64_t start = state.clockCycles;
    const std::int64_t stepsEnd = start + maxSteps * kClocksPerCycle;
    dispatch.sliceEnd = dispatch.attention != 0 ? 0 : std::min(stepsEnd, dispatch.timerOverflowAt);
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

bool SomethingIsDue(const Processor& processor) {
    const Dispatch& dispatch = processor.dispatch;
    return dispatch.attention != 0 || dispatch.stepsToDue != kNever ||
           processor.state.clockCycles >= dispatch.timerOverflowAt;
}

// Somebody else may have changed levels since the last step: a read must see them.
void RefreshStalePorts(Processor& processor) {
    const auto ports = static_cast<Attention>(processor.dispatch.attention & kAllPortsAttention);
    const auto pc = static_cast<std::size_t>(processor.state.pc);
    if (ports != 0 && !processor.dispatch.interruptPending &&
        ReadsRegister(processor.dispatch.code[pc].word)) {
        UpdatePorts(processor, ports);
    }
}

}  // namespace

RunResult Run(Processor& processor, std::int64_t maxSteps) {
    ProcessorState& state = processor.state;
    Dispatch& dispatch = processor.dispatch;
    std::int64_t remaining = maxSteps;
    std::uint8_t marks = 0;
    RefreshStalePorts(processor);
    do {
        std::int64_t steps = 1;
        if (dispatch.interruptPending) {
            EnterInterrupt(processor);
        } else {
            steps = ExecuteInstructions(processor, std::min(remaining, dispatch.stepsToDue));
        }
        remaining -= steps;
        if (SomethingIsDue(processor)) {
            FinishSteps(processor, steps);
        }
        marks = dispatch.code[static_cast<std::size_t>(state.pc)].stopMarks;
        state.stopRequested = state.stopRequested || (marks & kBeyondMemoryMark) != 0;
    } while (remaining > 0 && marks == 0 && !state.stopRequested);
    CatchUpTimer(processor);
    state.dataMemory[kPcl] = static_cast<std::uint8_t>(state.pc);
    return {.steps = maxSteps - remaining, .breakpointReached = (marks & kBreakpointMark) != 0};
}

RunResult ExecuteStep(Processor& processor) {
    return Run(processor, 1);
}

}  // namespace corvane::core
