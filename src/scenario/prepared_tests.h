// Test files with the programs that they test, ready to run.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/result.h"
#include "inspect/names.h"
#include "project/loaded_program.h"
#include "project/messages.h"
#include "scenario/statement.h"
#include "scenario/test_file.h"

namespace corvane::scenario {

// By the name's last extension, ".test" in either case.
bool IsTestFile(const std::string& path);

// All test files below the folder in the order of their whole paths; there may be none. The error
// says why the folder cannot be read.
common::Result<std::vector<std::string>> TestFilesBelow(const std::string& folder);

struct PreparedTests {
    Setup setup;
    project::LoadedProgram loaded;
    project::Program program;               // the same with its names and lines
    std::unique_ptr<inspect::Names> names;  // of the program
    std::vector<Test> tests;
    std::string debugArguments;  // for Bench
};

// Builds the program when it is a source; the model folder may be empty. Nothing when the file is
// refused, which the messages then say with its lines.
std::optional<PreparedTests> PrepareTests(const std::string& file, const std::string& modelFolder,
                                          const project::AssemblerChoice& assembler,
                                          project::Messages& messages);

}  // namespace corvane::scenario
