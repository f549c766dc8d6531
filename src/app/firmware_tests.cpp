#include "app/firmware_tests.h"

#include <limits>
#include <optional>
#include <utility>

#include "scenario/prepared_tests.h"
#include "scenario/report.h"
#include "scenario/test_run.h"

namespace corvane::app {

namespace {

TestResult Refusal(const std::string& file, const project::Messages& messages) {
    TestResult result{.file = file};
    for (const common::Diagnostic& message : messages) {
        result.told.push_back(common::TextWithFile(message));
        if (result.line == 0 && message.file == file) {
            result.line = message.line;
        }
    }
    return result;
}

}  // namespace

void RunTestFile(const std::string& file, const TestOptions& options,
                 const std::function<void(const TestResult&)>& tell) {
    project::Messages messages;
    const std::optional<scenario::PreparedTests> prepared =
        scenario::PrepareTests(file, options.modelFolder, options.assembler, messages);
    if (!prepared) {
        tell(Refusal(file, messages));
        return;
    }
    const inspect::Clock clock = prepared->setup.clock;
    const scenario::Bench bench = {
        .file = file,
        .model = *prepared->loaded.modelFile.model,
        .description = prepared->loaded.modelFile.description,
        .program = prepared->program,
        .setup = prepared->setup,
        .names = *prepared->names,
        .timeLimit = inspect::ClocksIn({scenario::kDefaultTimeLimitSeconds, 0}, "s", clock)
                         .value_or(std::numeric_limits<std::int64_t>::max()),
        .isCancelled = options.isCancelled,
        .debugArguments = prepared->debugArguments};
    for (const scenario::Test& test : prepared->tests) {
        std::optional<scenario::Outcome> outcome = scenario::RunTest(test, bench, {});
        if (!outcome) {
            return;
        }
        tell({.file = file,
              .name = outcome->name,
              .hasPassed = outcome->failure.empty(),
              .time = inspect::TimeText(outcome->clocks, clock),
              .told = std::move(outcome->failure),
              .line = outcome->failedLine});
    }
}

}  // namespace corvane::app
