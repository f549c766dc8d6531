// Compiling texts of growing length, which use every statement form, and rewriting one line or all.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basic/compiler.h"
#include "basic/editor_form.h"
#include "common/text.h"
#include "common/text_file.h"
#include "models/catalogue.h"
#include "models/description.h"

namespace corvane::basic {
namespace {

constexpr int kLinesPerBlock = 20;
constexpr int kPic16F877 = 5;

models::ModelDescription Description() {
    const auto text = common::ReadTextFile(CORVANE_SOURCE_DIR "/data/models/pic16f877.cfg");
    return *models::ReadModelDescription(*text);
}

// Many labels, jumps to labels far ahead, and open blocks all the way.
std::string Source(int lineCount) {
    const int blocks = lineCount / kLinesPerBlock;
    std::string source =
        "dim f as bit\ndim g as bit\ndim a as byte\ndim b as byte\ndim w as word\ndim v as word\n";
    for (int block = 0; block < blocks; ++block) {
        source += "label" + std::to_string(block) + ": a=a+1 'comment " + std::to_string(block);
        source +=
            "\nw=w*300\nv=w/7\nif a>=b then\nportb.0=not f\nelse\nf=g and portb.1\nend if\n"
            "while not trisb.3\nw=sqr(v)\nwend\nfor w=1 to 1000 step v\nread 5,a\nnext w\n"
            "write a,b\n\nwaitms 100\nif w<>v then\n'nothing\n";
        source += "goto label" + std::to_string(blocks - 1 - block) + "\n";
    }
    for (int block = 0; block < blocks; ++block) {
        source += "end if\n";
    }
    return source;
}

void CompileLines(benchmark::State& state) {
    const models::ModelDescription description = Description();
    const std::string text =
        RewriteText(Source(static_cast<int>(state.range(0))), EditorKeywords(description));
    while (state.KeepRunning()) {
        const auto compilation =
            Compile(text, models::kModelCatalogue[kPic16F877], description, 4.0F);
        if (!compilation) {
            state.SkipWithError(TextWithLine(compilation.error).c_str());
            break;
        }
        benchmark::DoNotOptimize(compilation->assembler.data());
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void RewriteAll(benchmark::State& state) {
    const std::string source = Source(static_cast<int>(state.range(0)));
    const std::vector<EditorKeyword> keywords = EditorKeywords(Description());
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(RewriteText(source, keywords));
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// What the editor does when the caret leaves a line.
void RewriteAndColorOneLine(benchmark::State& state) {
    const std::vector<EditorKeyword> keywords = EditorKeywords(Description());
    while (state.KeepRunning()) {
        const std::string line =
            RewriteLine("for i=1 to portb.lb step -2 'loop over all of them", keywords);
        benchmark::DoNotOptimize(ColorLine(line, keywords));
    }
}

BENCHMARK(CompileLines)
    ->Arg(5000)
    ->Arg(10000)
    ->Arg(20000)
    ->Arg(40000)
    ->Arg(80000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(RewriteAll)->Arg(10000)->Arg(20000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(RewriteAndColorOneLine)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace corvane::basic
