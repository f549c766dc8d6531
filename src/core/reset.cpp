#include "core/reset.h"

#include <algorithm>
#include <utility>

#include "core/cpu/data_memory.h"
#include "core/cpu/decoded_program.h"
#include "core/cpu/interrupts.h"
#include "core/peripherals/peripherals.h"
#include "core/peripherals/ports.h"
#include "core/schedule.h"

namespace corvane::core {

namespace {

void MarkMemoryEnd(Processor& processor) {
    for (int pc = processor.model->programWords; pc < kProgramCounterRange; ++pc) {
        SetStopMarks(processor, pc, kBeyondMemoryMark);
    }
}

// What news and which literals the peripherals wait for.
void DeriveInterests(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    for (std::size_t index = 0; index < processor.peripherals.size(); ++index) {
        const Peripheral& peripheral = *processor.peripherals[index];
        for (const News news : {News::PinUse, News::Levels}) {
            if ((peripheral.follows & MaskOf(news)) != 0) {
                dispatch.followers[static_cast<std::size_t>(news)] |= MaskOf(index);
            }
        }
        dispatch.clocked |= peripheral.unit == TimeUnit::InstructionCycles ? MaskOf(index) : 0;
        dispatch.literalWatchers |= peripheral.watchesLiteral != nullptr ? MaskOf(index) : 0;
    }
}

}  // namespace

Processor MakeProcessor(const models::Model& model, models::ModelDescription description) {
    const models::FamilyTraits& traits = models::TraitsOf(model.family);
    Processor processor{.model = &model,
                        .traits = &traits,
                        .description = std::move(description),
                        .peripherals = PeripheralsOf(traits),
                        .state = {},
                        .dispatch = {}};
    DeriveCellAccess(processor);
    DeriveInterests(processor);
    ForgetDecodedProgram(processor);
    MarkMemoryEnd(processor);
    Clean(processor);
    return processor;
}

void Clean(Processor& processor) {
    ProcessorState fresh;
    fresh.stopRequested = processor.state.stopRequested;
    for (const models::Sfr& sfr : processor.description.sfrList) {
        if (sfr.address < models::kPrescalerAddress) {
            fresh.dataMemory[static_cast<std::size_t>(sfr.address)] =
                static_cast<std::uint8_t>(sfr.resetValue);
        }
    }
    processor.state = fresh;
    StateChanged(processor);
}

void StartSimulation(Processor& processor) {
    Clean(processor);
    processor.state.stopRequested = false;
    processor.state.clockCycles += kClocksPerCycle;
    CatchUpAll(processor);
}

void FillProgramMemory(Processor& processor, std::span<const std::uint16_t> words) {
    auto& memory = processor.programMemory;
    const auto size = static_cast<std::size_t>(processor.model->programWords);
    memory.fill(0);
    std::copy_n(words.begin(), std::min(words.size(), size), memory.begin());
    ForgetDecodedProgram(processor);
}

void SetBreakpoints(Processor& processor, std::span<const int> addresses) {
    const auto& marks = processor.dispatch.stopMarks;
    for (int pc = 0; pc < kProgramCounterRange; ++pc) {
        const int mark = marks[static_cast<std::size_t>(pc)];
        if ((mark & kBreakpointMark) != 0) {
            SetStopMarks(processor, pc, mark & ~kBreakpointMark);
        }
    }
    for (const int pc : addresses) {
        SetStopMarks(processor, pc, marks[static_cast<std::size_t>(pc)] | kBreakpointMark);
    }
}

void StateChanged(Processor& processor) {
    for (const Peripheral* peripheral : processor.peripherals) {
        if (peripheral->configure != nullptr) {
            peripheral->configure(processor);
        }
    }
    UpdateAllPorts(processor);
    RescheduleAll(processor);
    processor.dispatch.interruptPending = InterruptPending(processor);
}

}  // namespace corvane::core
