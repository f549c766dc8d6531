// Finding test files, and reading them with the programs that they test.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli/command_result.h"
#include "cli/gpasm_build.h"
#include "cli/loaded_program.h"
#include "common/result.h"
#include "inspect/names.h"
#include "scenario/statement.h"
#include "scenario/test_file.h"

namespace corvane::cli {

// The test files among these paths: files as they are named, and all below a folder in the order of
// their whole paths. The error is complete.
common::Result<std::vector<std::string>, CommandResult> FindTestFiles(
    const std::vector<std::string>& paths);

// A test file that is ready to run.
struct PreparedTests {
    scenario::Setup setup;
    LoadedProgram loaded;
    std::unique_ptr<inspect::Names> names;  // of the loaded program
    std::vector<scenario::Test> tests;
};

// Builds the program when it is a source. The error is complete.
common::Result<PreparedTests> PrepareTests(const std::string& file, const std::string& modelFolder,
                                           const AssemblerOptions& assembler);

}  // namespace corvane::cli
