// Running firmware tests in the application.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "project/gpasm_build.h"

namespace corvane::app {

// A test that has run, or a file that was refused.
struct TestResult {
    std::string file;
    std::string name{};  // empty: the file was refused
    bool hasPassed = false;
    std::string time{};               // simulated: "30 ms"
    std::vector<std::string> told{};  // of a failure: its line, why, and the values
    int line = 0;                     // of the file, that failed; 0: none is meant
};

struct TestOptions {
    std::string modelFolder;
    project::AssemblerChoice assembler{};  // of .asm programs
    std::function<bool()> isCancelled;     // asked often
};

// Runs the tests of one file, each for ten simulated minutes at most. Tells each result as soon as
// it is there.
void RunTestFile(const std::string& file, const TestOptions& options,
                 const std::function<void(const TestResult&)>& tell);

}  // namespace corvane::app
