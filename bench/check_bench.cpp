// Checking 8192 words: 409 subroutines that call each other, with the page selected before each
// call and a bank left behind.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

#include "check/check.h"
#include "models/description.h"

namespace {

using corvane::check::Program;
using Words = std::vector<std::uint16_t>;

constexpr int kWords = 8192;
constexpr int kSubroutineWords = 20;

std::uint16_t Word(int value) {
    return static_cast<std::uint16_t>(value);
}

// BSF or BCF PCLATH,3 and PCLATH,4.
void SelectPage(int target, Words& words) {
    words.push_back((target & 0x800) != 0 ? 0x158A : 0x118A);
    words.push_back((target & 0x1000) != 0 ? 0x160A : 0x120A);
}

Words Subroutines() {
    std::mt19937 random(1);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<std::uint32_t>(limit));
    };
    Words words;
    const int count = kWords / kSubroutineWords;
    for (int i = 0; i < count; ++i) {
        const int begin = i * kSubroutineWords;
        for (int calls = 0; calls < 2 && i + 1 < count; ++calls) {
            const int farthest = std::min(count - 1 - i, 8);
            const int target = begin + kSubroutineWords * (1 + below(farthest));
            SelectPage(target, words);
            words.push_back(Word(0x3000 + below(0x100)));    // MOVLW
            words.push_back(Word(0x2000 + target % 0x800));  // CALL
        }
        SelectPage(begin, words);
        words.push_back(below(2) == 0 ? 0x1683 : 0x1283);  // BSF or BCF STATUS,RP0
        words.resize(static_cast<std::size_t>(begin + kSubroutineWords - 1), 0x0820);
        words.push_back(i == 0 ? 0x2800 : 0x0008);  // GOTO 0 or RETURN
    }
    words.resize(kWords, 0x3FFF);
    return words;
}

void Check(benchmark::State& state, const Words& words) {
    const Program program{words, std::vector<bool>(kWords, true),
                          std::vector<std::optional<corvane::check::Operand>>(kWords)};
    const corvane::models::ModelDescription description;
    while (state.KeepRunning()) {
        const auto findings = corvane::check::Check(program, description);
        benchmark::DoNotOptimize(findings.list.data());
    }
}
BENCHMARK_CAPTURE(Check, Subroutines, Subroutines())->Unit(benchmark::kMillisecond);

}  // namespace
