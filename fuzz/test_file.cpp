// Any bytes are a test file: it is read or refused at one of its lines, and a test that is read
// ends within its limit of time, in the same way every time.
#include "scenario/test_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "inspect/names.h"
#include "require.h"
#include "scenario/statement_reader.h"
#include "scenario/test_run.h"

namespace {

using namespace corvane;

// The program and the chip of every test. The description is made here: a fuzz target reads no
// files.
struct Scenery {
    const models::Model& model = models::kModelCatalogue[models::kDefaultModel];
    models::ModelDescription description = Description();
    project::Program program = {
        .image = {.words = {0x0A8C, 0x080C, 0x0086, 0x2005, 0x2800, 0x078C, 0x0008}},
        .labels = {{"LOOP", 0}, {"ADD", 5}},
        .constants = {{"COUNT", 0x0C, true}},
        .places = std::vector<std::optional<project::Place>>(7),
    };
    inspect::Names names{model, description, program};

    Scenery() { program.image.words.resize(static_cast<std::size_t>(model.programWords), 0x3FFF); }

    static models::ModelDescription Description() {
        models::ModelDescription description;
        description.gprList.push_back({"00Ch", 0x0C});
        description.sfrList = {{"003h  STATUS", 3, 0x18}, {"006h  PORTB", 6, 0}};
        description.asmSymbolLines = {{"Z EQU 2", 1}, {"RB0 EQU 0", 2}};
        return description;
    }
};

void RunTwice(const scenario::Test& test, const scenario::Setup& setup, const Scenery& scenery) {
    constexpr std::int64_t kClocks = 20'000;
    const scenario::Bench bench = {.file = "f.test",
                                   .model = scenery.model,
                                   .description = scenery.description,
                                   .program = scenery.program,
                                   .setup = setup,
                                   .names = scenery.names,
                                   .timeLimit = kClocks};
    const auto first = scenario::RunTest(test, bench, {});
    const auto second = scenario::RunTest(test, bench, {});
    Require(first && second && first->clocks == second->clocks &&
            first->failure == second->failure);
    Require(first->clocks <= 2 * kClocks);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Scenery scenery;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto lineCount = static_cast<int>(std::count(text.begin(), text.end(), '\n') +
                                            std::count(text.begin(), text.end(), '\r') + 1);
    const auto file = scenario::ReadTestFile(text);
    if (!file) {
        Require(file.error.line >= 1 && file.error.line <= lineCount &&
                !file.error.message.empty());
        return 0;
    }
    if (scenario::EepromError(file->setup, scenery.model)) {
        return 0;
    }
    for (const scenario::TestLines& lines : file->tests) {
        const auto test = scenario::ReadTest(lines, {scenery.names, file->setup.clock});
        if (test) {
            RunTwice(*test, file->setup, scenery);
        } else {
            Require(test.error.line >= lines.line && test.error.line <= lineCount &&
                    !test.error.message.empty());
        }
    }
    return 0;
}
