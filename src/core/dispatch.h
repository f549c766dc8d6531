// What execution derives from program memory, breakpoints and registers, so that a step need not
// look it up again. Nothing here can be observed: it follows from the processor's other members.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/cell_table.h"
#include "core/peripheral.h"
#include "core/processor_state.h"

namespace corvane::core {

struct DecodedWord;

using ExecuteFunction = void (*)(Processor& processor, const DecodedWord& decoded);

// One address of the program counter's range; addresses past the model's memory repeat it.
struct DecodedWord {
    ExecuteFunction execute;
    std::uint16_t word;
    std::uint16_t nextPc;    // the address behind this one, 0 after 8191
    std::uint8_t operand;    // the register's file address, or an 8-bit literal
    std::uint8_t bitMask;    // of bit instructions
    std::uint8_t stopMarks;  // why a run ends when pc arrives here
};

constexpr std::uint8_t kBreakpointMark = 1;
constexpr std::uint8_t kBeyondMemoryMark = 2;

constexpr std::size_t kMaxPeripherals = 32;
using PeripheralMask = std::uint32_t;  // a bit for each place in the list
constexpr PeripheralMask MaskOf(std::size_t peripheral) {
    return PeripheralMask{1} << peripheral;
}

// Where a peripheral stands in time: clockCycles for those that count instruction cycles, else
// steps as Dispatch counts them.
struct Standing {
    std::int64_t advancedUntil = 0;
    std::int64_t due = kNever;
};

struct Dispatch {
    std::array<DecodedWord, kProgramCounterRange> code{};
    std::array<std::uint16_t, models::kDataMemorySize> resolvedCells{};  // by data-memory address
    CellTable cells;
    std::size_t bankOffset = 0;  // 80h x RP1:RP0

    // The peripherals, by their place in the list.
    std::array<Standing, kMaxPeripherals> standings{};
    PeripheralMask counting = 0;   // those with a due time
    PeripheralMask attention = 0;  // those that must be advanced at the end of the present step
    PeripheralMask literalWatchers = 0;
    std::array<PeripheralMask, kNewsCount> followers{};
    std::int64_t clockDue = kNever;  // the earliest due time in clockCycles
    std::int64_t stepDue = kNever;   // and in steps

    std::int64_t steps = 0;  // any number that counts on with each step
    bool interruptPending = false;

    // Cycles of the present slice that were no instruction's first.
    std::int64_t extraCycles = 0;

    // Instructions are executed one after the other until clockCycles reaches this. Whatever needs
    // a look at the end of the present step lowers it.
    std::int64_t sliceEnd = 0;
};

// The present step is the last of its slice.
inline void EndSlice(Dispatch& dispatch) {
    dispatch.sliceEnd = 0;
}

}  // namespace corvane::core
