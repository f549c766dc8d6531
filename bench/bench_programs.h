// The programs whose simulation is measured.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "core/processor.h"

namespace corvane::bench {

struct BenchProgram {
    std::string_view name;  // of the file in bench/programs
    std::string_view model;
};

inline constexpr std::array<BenchProgram, 5> kBenchPrograms = {{
    {"arithmetic", "PIC16F877"},
    {"indirect", "PIC16F877"},
    {"timer_interrupt", "PIC16F84"},
    {"ports_and_converter", "PIC16F877"},
    {"delay", "PIC16F84"},
}};

// A started simulation of the program; nothing, after a message on standard error, when it cannot
// be assembled.
std::optional<core::Processor> StartBenchProgram(const BenchProgram& program);

}  // namespace corvane::bench
