#include "core/cpu/slice.h"

#include <algorithm>

#include "core/cpu/core.h"
#include "core/cpu/decoded_program.h"
#include "core/schedule.h"

namespace corvane::core {

namespace {

void BeginSlice(Processor& processor) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.sliceStart = processor.state.clockCycles;
    dispatch.extraCycles = 0;
    dispatch.bankCode =
        dispatch.code.data() + BankOf(processor.state.dataMemory[kStatus]) * kDecodedWordsOfBank;
}

// Executes the instruction at pc, and those behind it as far as GoOn does.
void ExecuteFrom(Processor& processor, DecodedWord* at, ExecuteFunction execute) {
    const ProcessorState& state = processor.state;
    const std::int64_t left = processor.dispatch.sliceEnd - state.clockCycles - kClocksPerCycle;
    execute(processor, at, left, state.w, state.dataMemory[kStatus], nullptr);
}

// A slice may begin at a mark, which ends it only when it is come to.
void ExecuteFirst(Processor& processor) {
    const auto pc = static_cast<std::size_t>(processor.state.pc);
    DecodedWord* const at = processor.dispatch.bankCode + pc;
    const bool isMarked = processor.dispatch.stopMarks[pc] != 0;
    ExecuteFrom(processor, at, isMarked ? DecodeEntry(processor, at) : at->execute);
}

void ExecuteNext(Processor& processor) {
    DecodedWord* const at = processor.dispatch.bankCode + processor.state.pc;
    ExecuteFrom(processor, at, at->execute);
}

// How many steps may follow those of the slice.
std::int64_t StepsLeft(const Processor& processor) {
    const Dispatch& dispatch = processor.dispatch;
    return std::min(dispatch.lastStep, dispatch.stepDue) - dispatch.steps - StepsOfSlice(processor);
}

void SetSliceEnd(Processor& processor, std::int64_t stepsLeft) {
    const std::int64_t end = processor.state.clockCycles + stepsLeft * kClocksPerCycle;
    processor.dispatch.sliceEnd = std::min(end, processor.dispatch.clockDue);
}

}  // namespace

void Leave(Processor& processor, DecodedWord* at, std::int64_t left, int w, int status,
           DecodedWord* last) {
    Save({processor, last, left + kClocksPerCycle, w, status, at});
    if (last != nullptr) {
        processor.state.lastInstruction = last->word;
    }
}

std::int64_t ExecuteSlice(Processor& processor) {
    ProcessorState& state = processor.state;
    const Dispatch& dispatch = processor.dispatch;
    if (dispatch.attention != 0) {
        ExecuteInstruction(processor);
        return 1;
    }
    BeginSlice(processor);
    SetSliceEnd(processor, StepsLeft(processor));
    ExecuteFirst(processor);
    // A slice ends after a number of clock cycles, which is a number of steps only if all take one.
    std::int64_t left = StepsLeft(processor);
    while (dispatch.sliceEnd != 0 && state.clockCycles < dispatch.clockDue && left > 0) {
        SetSliceEnd(processor, left);
        ExecuteNext(processor);
        left = StepsLeft(processor);
    }
    const std::int64_t steps = StepsOfSlice(processor);
    state.instructionCount += steps;
    return steps;
}

void ExecuteInstruction(Processor& processor) {
    BeginSlice(processor);
    EndSlice(processor.dispatch);
    ExecuteFirst(processor);
    ++processor.state.instructionCount;
}

}  // namespace corvane::core
