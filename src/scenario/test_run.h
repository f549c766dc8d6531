// Executes a test on a simulated chip.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "inspect/faults.h"
#include "inspect/names.h"
#include "inspect/observed_run.h"
#include "inspect/waveform.h"
#include "project/program.h"
#include "scenario/outcome.h"
#include "scenario/schedule.h"
#include "scenario/statement.h"
#include "scenario/test_file.h"

namespace corvane::scenario {

constexpr std::int64_t kDefaultTimeLimitSeconds = 600;

// What every test of a file starts from.
struct Bench {
    std::string file;  // as messages name the test file
    const models::Model& model;
    const models::ModelDescription& description;
    const project::Program& program;
    const Setup& setup;
    const inspect::Names& names;
    inspect::FaultSet faults{};  // that fail a test
    std::int64_t timeLimit = 0;  // clock cycles of each test
    std::function<bool()> isCancelled = [] { return false; };
    std::string debugArguments{};  // with which the debugger starts like a test; empty: it cannot
};

// What looks at a test besides its own lines; either may be missing.
struct Recorders {
    inspect::Observer* counts = nullptr;
    inspect::Waveform* waveform = nullptr;  // of this test alone
    std::function<void(const std::string&)> writeWaveform = [](const std::string&) {};
};

// Executes a test from Start to its end or its first failure. The result is nothing when it was
// cancelled. A test is a function of the bench.
std::optional<Outcome> RunTest(const Test& test, const Bench& bench, const Recorders& recorders);

}  // namespace corvane::scenario
