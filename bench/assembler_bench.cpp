// Assembling sources of growing length: a fifth of the lines are labels that are used before they
// are defined.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "asm/assembler.h"
#include "models/symbol_lines.h"

namespace corvane::assembler {
namespace {

constexpr int kLinesPerBlock = 10;
constexpr int kBlocksPerOrg = 1000;  // keeps jump targets below 2000h

std::vector<models::PredefinedSymbol> Symbols() {
    return {{"STATUS", 3}, {"PORTB", 6}, {"TRISB", 0x86}, {"RP0", 5}, {"Z", 2}, {"W", 0}, {"F", 1}};
}

std::string Source(int lineCount) {
    std::string source;
    for (int block = 0; block < lineCount / kLinesPerBlock; ++block) {
        const std::string number = std::to_string(block);
        source += block % kBlocksPerOrg == 0 ? "        ORG 0x0000\r\n" : "\r\n";
        source += "; Waits until the input is high, then counts it.\r\n";
        source += "WAIT_" + number + ":\r\n";
        source += "        btfsc STATUS,Z          ; zero?\r\n";
        source += "        goto  DONE_" + number + "\r\n";
        source += "        movlw 0x55\r\n";
        source += "\txorwf\tPORTB,F\r\n";
        source += "        incf  0x20,F            ; one more\r\n";
        source += "        goto  WAIT_" + number + "\r\n";
        source += "DONE_" + number + "  bcf STATUS,RP0\r\n";
    }
    return source;
}

void AssembleLines(benchmark::State& state) {
    const std::string source = Source(static_cast<int>(state.range(0)));
    const std::vector<models::PredefinedSymbol> symbols = Symbols();
    while (state.KeepRunning()) {
        const Assembly assembly = Assemble(source, symbols, 0x3FF1);
        if (assembly.errorCount != 0) {
            state.SkipWithError("the source has errors");
            break;
        }
        benchmark::DoNotOptimize(assembly.hex.data());
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(AssembleLines)
    ->Arg(10000)
    ->Arg(20000)
    ->Arg(40000)
    ->Arg(80000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

}  // namespace
}  // namespace corvane::assembler
