// What an instruction works with. While a slice runs, pc, W, STATUS and clockCycles of the state
// are those of its start: an instruction has them in its Core, which the compiler keeps in the
// host's registers. Whoever needs the whole processor within an instruction calls Save first.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/processor.h"
#include "core/registers.h"

namespace corvane::core {

struct Core {
    Processor& processor;
    DecodedWord* at;    // the instruction
    std::int64_t left;  // clock cycles of the slice, those of the instruction counted
    int w;
    int status;
    DecodedWord* next;  // where execution goes on
};

// The bank that a value of STATUS selects with RP1:RP0.
constexpr std::ptrdiff_t BankOf(int status) {
    return (status & status::kBankSelect) / 0x20;
}

// pc, which is on the instruction behind this one unless that jumps.
inline int Pc(const Core& core) {
    return static_cast<int>(core.next - core.processor.dispatch.bankCode) & kProgramCounterMask;
}

// An instruction's further cycle, which is no further step.
inline void ExtraCycle(Core& core) {
    core.left -= kClocksPerCycle;
    ++core.processor.dispatch.extraCycles;
}

// To an address (0..8191), in a further cycle.
inline void JumpTo(Core& core, int address) {
    core.next = core.processor.dispatch.bankCode + address;
    ExtraCycle(core);
}

// Over the next instruction, in a further cycle.
inline void Skip(Core& core) {
    ++core.next;
    ExtraCycle(core);
}

// The bits of STATUS that the mask names become these.
inline void SetStatusBits(Core& core, int mask, int bits) {
    core.status = (core.status & ~mask) | bits;
}

// The cell that INDF stands for.
inline std::size_t IndirectCell(const Processor& processor, int status) {
    const int address = processor.state.dataMemory[kFsr] + (status & status::kIrp) * 2;
    return processor.description.addressMap[static_cast<std::size_t>(address)];
}

// Puts the registers into the state.
inline void Save(const Core& core) {
    ProcessorState& state = core.processor.state;
    state.pc = Pc(core);
    state.w = core.w;
    state.dataMemory[kStatus] = static_cast<std::uint8_t>(core.status);
    state.clockCycles = core.processor.dispatch.sliceEnd - core.left;
}

// To be called after something that may have moved the slice's end.
inline void TakeSliceEnd(Core& core) {
    core.left = core.processor.dispatch.sliceEnd - core.processor.state.clockCycles;
}

// This instruction is the last of its slice.
inline void EndSlice(Core& core) {
    Save(core);
    EndSlice(core.processor.dispatch);
    TakeSliceEnd(core);
}

// Takes the place of an instruction at the end of a slice, as an ExecuteFunction: gives back the
// cycle that was counted for it, and puts the registers into the state.
void Leave(Processor& processor, DecodedWord* at, std::int64_t left, int w, int status,
           DecodedWord* last);

// The end of every instruction. Where the compiler makes calls in tail position jumps, as GCC and
// clang do at -O2 and above, the next instruction is called; elsewhere the stack would grow with
// each of them, so that every instruction leaves.
[[gnu::always_inline]] inline void GoOn(const Core& core) {
    const std::int64_t left = core.left - kClocksPerCycle;
#ifdef CORVANE_TAIL_CALLS
    if (left >= 0) [[likely]] {
        return core.next->execute(core.processor, core.next, left, core.w, core.status, core.at);
    }
#endif
    return Leave(core.processor, core.next, left, core.w, core.status, core.at);
}

}  // namespace corvane::core
