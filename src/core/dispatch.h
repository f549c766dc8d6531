// What execution derives from program memory, breakpoints and registers, so that a step need not
// look it up again. Nothing here can be observed: it follows from the processor's other members.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "core/processor_state.h"

namespace corvane::core {

struct Processor;
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

// What an access to a cell does besides reading or writing it.
enum class CellKind : std::uint8_t {
    Plain,  // nothing
    // From here on a write does more than store the masked value.
    Status,
    OptionReg,
    DigitalTris,
    AnalogTris,        // of a port with analog inputs
    InterruptControl,  // PIRx, PIEx
    AnalogControl,     // ADCON1, VRCON, CMCON
    ConverterControl,  // ADCON0
    EepromControl,     // EECON1
    // From here on a read is not simply the cell either.
    Tmr0,
    Intcon,
    Pcl,
    DigitalPort,
    AnalogPort,
    Indirect,  // INDF: the cell depends on FSR
};
constexpr CellKind kFirstKindWithWrite = CellKind::Status;
constexpr CellKind kFirstKindWithRead = CellKind::Tmr0;

// What must be looked at before a step ends.
using Attention = std::uint8_t;
constexpr Attention kPortAttention = 0x01;  // port A; B to E are the next bits
constexpr Attention kAllPortsAttention = 0x1F;
constexpr Attention kAnalogAttention = 0x20;  // converter or comparators
constexpr Attention kEepromAttention = 0x40;
constexpr Attention kInterruptAttention = 0x80;
constexpr Attention kAllAttention = 0xFF;

// Stands for INDF in resolvedCells: the cell depends on FSR.
constexpr int kIndirectCell = models::kDataMemorySize;

constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

struct Dispatch {
    std::array<DecodedWord, kProgramCounterRange> code{};
    std::array<std::uint16_t, models::kDataMemorySize> resolvedCells{};  // by data-memory address
    std::array<CellKind, models::kDataMemorySize + 1> cellKinds{};
    std::size_t bankOffset = 0;  // 80h x RP1:RP0

    // Timer0 is counted when somebody looks or when it overflows, not in each cycle.
    std::int64_t timerCountedUntil = 0;     // in clockCycles
    std::int64_t timerOverflowAt = kNever;  // in clockCycles

    Attention attention = 0;
    bool analogConfigChanged = false;  // ADCON1, CMCON or VRCON was written
    bool interruptPending = false;
    // Cycles of the present slice that were no instruction's first.
    std::int64_t extraCycles = 0;

    // Steps until a conversion or an EEPROM write in progress is done.
    std::int64_t stepsToDue = kNever;

    // Instructions are executed one after the other until clockCycles reaches this. Whatever needs
    // a look at the end of the present step lowers it.
    std::int64_t sliceEnd = 0;
};

}  // namespace corvane::core
