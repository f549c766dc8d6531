// What a peripheral is to the engine: a row of functions. The engine knows the list of a chip's
// peripherals (core/peripherals/peripherals.h) and nothing else about any of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "models/catalogue.h"

namespace corvane::core {

struct Processor;

// What an access of the program to a cell of data memory does besides reading or writing it.
struct CellAccess {
    // What is read; without it what the cell holds.
    int (*read)(Processor& processor, std::size_t cell) = nullptr;
    // What a write does; without it the masked value is stored.
    void (*write)(Processor& processor, std::size_t cell, int value) = nullptr;
    // The cell changes with time: whatever counts instruction cycles is brought up to date before
    // it is accessed.
    bool followsTime = false;
    // A write asks for its owner's advance at the end of the step.
    bool asksForLook = false;
    // The same for an owner that counts steps and does in this one what it would do at its end.
    bool actsAtOnce = false;
};

// Bits of a claimed cell.
using CellEffect = std::uint8_t;
constexpr CellEffect kReadEffect = 1;  // a read is not simply the cell; it has the other effect too
constexpr CellEffect kWriteEffect =
    2;  // a write, or a read before it, does more than the plain thing
// The cell is the latch of a port without analog inputs: a read gives its levels, a write changes
// them at once.
constexpr CellEffect kDigitalPortEffect = 4;

// Who owns which cells, by data-memory address. Cells that nobody claims just hold their value.
class CellTable;

// Times are in the unit that the peripheral chooses.
enum class TimeUnit : std::uint8_t { InstructionCycles, Steps };

constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

// What one peripheral tells all others that care.
enum class News : std::uint8_t {
    PinUse,  // which pins are analog, or what a reference puts on them, has changed
    Levels,  // levels or analog values of pins may have changed
};
constexpr std::size_t kNewsCount = 2;
using NewsMask = std::uint8_t;  // a bit for each of News
constexpr NewsMask MaskOf(News news) {
    return static_cast<NewsMask>(1U << static_cast<unsigned>(news));
}

// Functions that a peripheral does not need are left out. At the end of a step the engine advances
// those whose time has come, that own a cell which asked for it, or that care for news, in the
// order of the list: news reaches those that stand later in the same step, the others in the next
// one.
struct Peripheral {
    // Whether chips of this family have it; all chips without the function.
    bool (*isPartOf)(const models::FamilyTraits& traits) = nullptr;

    // Which cells it owns, and what an access to them does.
    void (*claimCells)(CellTable& cells, const models::FamilyTraits& traits) = nullptr;

    // What follows at once from the registers: after a reset has set them, or somebody by hand.
    void (*configure)(Processor& processor) = nullptr;

    TimeUnit unit = TimeUnit::InstructionCycles;

    // How long after now something happens by itself, 1 or more, or kNever; the engine looks in at
    // that time at the latest.
    std::int64_t (*nextDue)(const Processor& processor) = nullptr;

    // How long its cells that follow time stay as they are if it is left alone, 1 or more, or
    // kNever. No loop that reads such a cell is done in one go without it.
    std::int64_t (*nextChange)(const Processor& processor) = nullptr;

    // Time has passed since it was last advanced: 0 or more instruction cycles, or 1 or more steps
    // of which all but the last were uneventful.
    void (*advance)(Processor& processor, std::int64_t elapsed) = nullptr;

    // A pin got a new level from outside while a simulation runs.
    void (*pinEdge)(Processor& processor, models::Pin pin, bool isHigh) = nullptr;

    // Whether it must be advanced after the step that executes this MOVLW.
    bool (*watchesLiteral)(int literal) = nullptr;

    NewsMask follows = 0;
};

// Places in a chip's list of peripherals.
constexpr std::size_t kMaxPeripherals = 32;
using PeripheralMask = std::uint32_t;  // a bit for each place in the list
constexpr PeripheralMask MaskOf(std::size_t peripheral) {
    return PeripheralMask{1} << peripheral;
}

}  // namespace corvane::core
