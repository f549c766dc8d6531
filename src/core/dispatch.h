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
    std::uint8_t bitMask;   // of bit instructions
    // Of a GOTO that closes a loop: how often it comes by before it asks for a look.
    std::uint16_t patience;
};

// The decoded program once for each bank, and behind its end two entries that lead to its start.
constexpr std::ptrdiff_t kBankCount = 4;
constexpr std::ptrdiff_t kDecodedWordsOfBank = kProgramCounterRange + 2;

// Why a run ends when pc arrives at an address.
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
    std::vector<DecodedWord> code;    // of all banks; a word is decoded when it is first executed
    DecodedWord* bankCode = nullptr;  // during a slice: where the code of the selected bank begins
    std::array<std::uint8_t, kProgramCounterRange> stopMarks{};
    std::array<std::uint16_t, models::kDataMemorySize> resolvedCells{};  // by data-memory address
    CellTable cells;

    Loops loops;
    DecodedWord* closedLoop = nullptr;  // a GOTO that ended the slice to ask for a look

    // The peripherals, by their place in the list.
    std::array<Standing, kMaxPeripherals> standings{};
    PeripheralMask clocked = 0;    // those that count instruction cycles, not steps
    PeripheralMask counting = 0;   // those with a due time
    PeripheralMask attention = 0;  // those that must be advanced at the end of the present step
    PeripheralMask literalWatchers = 0;
    std::array<PeripheralMask, kNewsCount> followers{};
    std::int64_t clockDue = kNever;  // the earliest due time in clockCycles
    std::int64_t stepDue = kNever;   // and in steps

    std::int64_t steps = 0;  // any number that counts on with each step
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
inline void EndSlice(Dispatch& dispatch) {
    dispatch.sliceEnd = 0;
}

}  // namespace corvane::core
