#include "core/processor.h"

#include <algorithm>
#include <utility>

#include "core/adc.h"
#include "core/comparators.h"
#include "core/data_memory.h"
#include "core/instructions.h"
#include "core/interrupts.h"
#include "core/timer0.h"
#include "disasm/decoder.h"

namespace corvane::core {

namespace {

void MarkMemoryEnd(Processor& processor) {
    const auto size = static_cast<std::size_t>(processor.model->programWords);
    for (std::size_t pc = size; pc < kProgramCounterRange; ++pc) {
        processor.dispatch.code[pc].stopMarks |= kBeyondMemoryMark;
    }
}

void DecodeProgram(Processor& processor) {
    const auto size = static_cast<std::size_t>(processor.model->programWords);
    for (std::size_t pc = 0; pc < kProgramCounterRange; ++pc) {
        DecodedWord& decoded = processor.dispatch.code[pc];
        const std::uint8_t marks = decoded.stopMarks;
        decoded =
            DecodeForExecution(processor.state.programMemory[pc % size], static_cast<int>(pc));
        decoded.stopMarks = marks;
    }
}

// Nothing is known about what changed: the next step looks at everything.
void DeriveFromRegisters(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    DeriveDataMemoryAccess(processor);
    dispatch.timerCountedUntil = processor.state.clockCycles;
    ScheduleTimer(processor);
    dispatch.analogConfigChanged = true;
    RaiseAttention(dispatch, kAllAttention);
    dispatch.interruptPending = InterruptPending(processor);
}

}  // namespace

Processor MakeProcessor(const models::Model& model, models::ModelDescription description) {
    Processor processor{
        .model = &model, .description = std::move(description), .state = {}, .dispatch = {}};
    DecodeProgram(processor);
    MarkMemoryEnd(processor);
    Clean(processor);
    return processor;
}

void Clean(Processor& processor) {
    const ProcessorState& old = processor.state;
    ProcessorState fresh;
    fresh.programMemory = old.programMemory;
    fresh.stopRequested = old.stopRequested;
    for (const models::Sfr& sfr : processor.description.sfrList) {
        if (sfr.address < models::kPrescalerAddress) {
            fresh.dataMemory[static_cast<std::size_t>(sfr.address)] =
                static_cast<std::uint8_t>(sfr.resetValue);
        }
    }
    if (models::IsPic16F87x(processor.model->family)) {
        AdcPortConfig(fresh);
    } else if (processor.model->family == models::ModelFamily::Pic16F62x) {
        ComparatorPortConfig(fresh);
    }
    processor.state = fresh;
    DeriveFromRegisters(processor);
}

void FillProgramMemory(Processor& processor, std::span<const std::uint16_t> words) {
    auto& memory = processor.state.programMemory;
    const auto size = static_cast<std::size_t>(processor.model->programWords);
    memory.fill(0);
    std::copy_n(words.begin(), std::min(words.size(), size), memory.begin());
    DecodeProgram(processor);
}

void SetBreakpoints(Processor& processor, std::span<const int> addresses) {
    for (DecodedWord& decoded : processor.dispatch.code) {
        decoded.stopMarks &= static_cast<std::uint8_t>(~kBreakpointMark);
    }
    for (const int address : addresses) {
        processor.dispatch.code[static_cast<std::size_t>(address)].stopMarks |= kBreakpointMark;
    }
}

void StateChanged(Processor& processor) {
    DecodeProgram(processor);
    DeriveFromRegisters(processor);
}

std::string LastInstructionText(const ProcessorState& state) {
    switch (state.lastInstruction) {
        case kNoInstruction:
            return "";
        case kInterruptEntry:
            return "INTERRUPT!";
        default:
            return disasm::DecodeInstruction(state.lastInstruction);
    }
}

}  // namespace corvane::core
