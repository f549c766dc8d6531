// Simulated instructions per second. Steps and instructions differ by the interrupt entries only.
#include <benchmark/benchmark.h>

#include "bench_programs.h"
#include "core/execution.h"

namespace corvane::bench {
namespace {

void BM_Simulate(benchmark::State& state) {
    const BenchProgram& program = kBenchPrograms[static_cast<std::size_t>(state.range(0))];
    auto processor = StartBenchProgram(program);
    if (!processor) {
        state.SkipWithError("the program cannot be started");
        return;
    }
    state.SetLabel(std::string(program.name));
    constexpr std::int64_t kSlice = 1'000'000;
    for ([[maybe_unused]] auto iteration : state) {
        core::Run(*processor, kSlice);
    }
    state.SetItemsProcessed(state.iterations() * kSlice);
}
BENCHMARK(BM_Simulate)->DenseRange(0, kBenchPrograms.size() - 1)->Unit(benchmark::kMillisecond);

// One step a call, as at the timed rates and when tracing.
void BM_ExecuteStep(benchmark::State& state) {
    auto processor = StartBenchProgram(kBenchPrograms[0]);
    if (!processor) {
        state.SkipWithError("the program cannot be started");
        return;
    }
    for ([[maybe_unused]] auto iteration : state) {
        core::ExecuteStep(*processor);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ExecuteStep);

}  // namespace
}  // namespace corvane::bench
