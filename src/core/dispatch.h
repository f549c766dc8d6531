// What execution derives from program memory, breakpoints and registers, so that a step need not
// look it up again. Nothing here can be observed: it follows from the processor's other members.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/cell_table.h"
#include "core/cpu/loops.h"
#include "core/peripheral.h"
#include "core/processor_state.h"

namespace corvane::core {

struct DecodedWord;

// Executes the instruction at a place of the decoded program and goes on with the next one:
// core/cpu/ core.h. What changes with every instruction travels in its arguments: the clock cycles
// that are left of the slice with this instruction's first counted, W, STATUS. Last is what was
// executed before.
using ExecuteFunction = void (*)(Processor& processor, DecodedWord* at, std::int64_t left, int w,
                                 int status, DecodedWord* last);

// A program word at an address while a bank is selected. Addresses past the model's memory repeat
// it.
struct DecodedWord {
    ExecuteFunction execute;
    std::uint16_t word;
    std::uint16_t operand;  // the register's cell, a literal, or an address
    // Of a bit instruction the bit, of a GOTO that closes a loop 1 + the place in Dispatch::loops,
    // or 0.
    std::uint16_t bitOrLoop;
    // Of a GOTO that closes a loop: how often it comes by before it asks for a look.
    std::uint16_t patience;
};

// The decoded program once for each bank, and behind its end two entries that lead to its start.
constexpr std::ptrdiff_t kBankCount = 4;
constexpr std::ptrdiff_t kDecodedWordsOfBank = kProgramCounterRange + 2;

// Why a run ends when pc arrives at an address.
constexpr std::uint8_t kBreakpointMark = 1;
constexpr std::uint8_t kBeyondMemoryMark = 2;

// Where a peripheral stands in time: clockCycles for those that count instruction cycles, else
// steps as Dispatch counts them.
struct Standing {
    std::int64_t advancedUntil = 0;
    std::int64_t due = kNever;
};

struct Dispatch {
    std::vector<DecodedWord> code;    // of all banks; a word is decoded when it is first executed
    DecodedWord* bankCode = nullptr;  // during a slice: where the code of the selected bank begins
    std::array<std::uint8_t, kProgramCounterRange> stopMarks{};
    std::array<std::uint16_t, models::kDataMemorySize> resolvedCells{};  // by data-memory address
    CellTable cells;

    std::vector<Loop> loops;
    DecodedWord* loopToWatch = nullptr;  // by the GOTO that closes it and ended the slice

    // The peripherals, by their place in the list.
    std::array<Standing, kMaxPeripherals> standings{};
    PeripheralMask clocked = 0;    // those that count instruction cycles, not steps
    PeripheralMask counting = 0;   // those with a due time
    PeripheralMask attention = 0;  // those that must be advanced at the end of the present step
    PeripheralMask literalWatchers = 0;
    std::array<PeripheralMask, kNewsCount> followers{};
    std::int64_t clockDue = kNever;  // the earliest due time in clockCycles
    std::int64_t stepDue = kNever;   // and in steps

    std::int64_t steps = 0;          // any number that counts on with each step
    std::int64_t lastStep = kNever;  // where the present run ends, as steps counts
    // Counts the times at which a peripheral's due time was worked out anew.
    std::uint64_t reschedules = 0;
    bool interruptPending = false;

    // Where the present slice began, in clockCycles, and its cycles that were no instruction's
    // first.
    std::int64_t sliceStart = 0;
    std::int64_t extraCycles = 0;

    // Instructions are executed one after the other until clockCycles reaches this. Whatever needs
    // a look at the end of the present step lowers it, while clockCycles is up to date.
    std::int64_t sliceEnd = 0;
};

// The present step is the last of its slice.
inline bool IsLastStep(const Dispatch& dispatch) {
    return dispatch.sliceEnd == 0;
}
inline void EndSlice(Dispatch& dispatch) {
    dispatch.sliceEnd = 0;
}

}  // namespace corvane::core
