// Runs one of the measured programs for a number of steps and prints nothing: what a counter of
// host instructions is put around.
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "bench_programs.h"
#include "core/execution.h"

int main(int argc, char** argv) {
    using namespace corvane;
    std::int64_t steps = 0;
    const std::string_view count = argc == 3 ? argv[2] : "";
    std::from_chars(count.data(), count.data() + count.size(), steps);
    for (const bench::BenchProgram& program : bench::kBenchPrograms) {
        if (steps > 0 && std::filesystem::path(argv[1]).stem() == program.name) {
            auto processor = bench::StartBenchProgram(program);
            return processor && core::Run(*processor, steps).steps == steps ? 0 : 1;
        }
    }
    std::cerr << "Usage: engine_driver PROGRAM STEPS\n";
    return 2;
}
