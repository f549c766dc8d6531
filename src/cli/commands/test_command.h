// corvane-cli test: runs firmware tests.
#pragma once

#include <string>
#include <vector>

#include "cli/command_result.h"
#include "inspect/faults.h"
#include "project/gpasm_build.h"

namespace corvane::cli {

struct TestOptions {
    std::vector<std::string> paths;      // test files, and folders of them
    std::string modelFolder;             // of the .cfg files; empty when they are to be found
    project::AssemblerChoice assembler;  // of .asm programs
    std::string junitFile;               // files are empty when not wanted
    std::string coverageFile;
    std::string waveformFolder;  // for the waveforms of failed tests
    bool tap = false;
    std::string nameFilter;  // empty: every test
    std::string timeLimit;   // of each test, a duration; empty: 10 minutes
    inspect::FaultSet faults{};
};

// A test file that is refused does not keep the others from being run.
CommandResult TestFirmware(const TestOptions& options);

}  // namespace corvane::cli
