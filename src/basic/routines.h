// The runtime routines: fixed assembler texts that the generated code calls with bank 0 selected.
// They work on the scratch registers R0L to R4H alone.
#pragma once

#include <bitset>
#include <cstddef>

#include "basic/code_writer.h"

namespace corvane::basic {

enum class Routine {
    Multiplication,  // M001: R0H:R0L:R2H:R2L = R1H:R1L x R3H:R3L, W = R2L
    Division,        // D001: R0H:R0L / R1H:R1L, remainder in R2H:R2L, W = R0L; by 0 gives FFFFh
    Comparison,      // C001..C006: =, <>, >, <, >=, <= of R0H:R0L and R1H:W; Z clear when false
    SquareRoot,      // S001: W = square root of R0H:W
    WaitMs,          // W001: waits R0H:R0L milliseconds, R1H inner loops each
};

constexpr std::size_t kRoutineCount = 5;

using RoutineFlags = std::bitset<kRoutineCount>;

// Notes that the program calls the routine.
inline void Require(RoutineFlags& flags, Routine routine) {
    flags.set(static_cast<std::size_t>(routine));
}

// The texts of the routines that the program calls, in the order of Routine.
void AppendRoutines(const RoutineFlags& flags, CodeWriter& code);

}  // namespace corvane::basic
