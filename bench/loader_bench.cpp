// Reading the largest program: 8192 words in records of eight.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "common/number_text.h"
#include "loader/intel_hex.h"

namespace {

constexpr int kWords = 8192;

std::string FullProgramHex() {
    constexpr int kWordsPerRecord = 8;
    std::string text;
    for (std::int64_t start = 0; start < kWords; start += kWordsPerRecord) {
        std::string pairs = "10" + corvane::common::Hex4(2 * start) + "00";
        for (std::int64_t word = start; word < start + kWordsPerRecord; ++word) {
            pairs += corvane::common::Hex2(word) + corvane::common::Hex2((word ^ 0x2A00) >> 8);
        }
        text += ":" + pairs + corvane::common::RecordChecksum(pairs) + "\r\n";
    }
    return text + ":00000001FF\r\n";
}

void LoadFullProgram(benchmark::State& state) {
    const std::string text = FullProgramHex();
    while (state.KeepRunning()) {
        const auto program = corvane::loader::ReadIntelHex(text, kWords);
        if (!program || program->loadedWords != kWords) {
            state.SkipWithError("the program did not load");
            break;
        }
        benchmark::DoNotOptimize(program->words.data());
    }
}
BENCHMARK(LoadFullProgram)->Unit(benchmark::kMicrosecond);

}  // namespace
