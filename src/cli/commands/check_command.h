// corvane-cli check: what is wrong with a program without running it.
#pragma once

#include <string>

#include "cli/command_result.h"
#include "models/defaults.h"
#include "project/gpasm_build.h"
#include "project/model_files.h"

namespace corvane::cli {

struct CheckOptions {
    project::ModelChoice model;
    std::string program;  // .hex, .asm or .bas
    std::string rules;    // names separated by commas, or "all"; empty: all that are warnings
    project::AssemblerChoice assembler;  // of an .asm file
    bool withoutSource = false;          // of a .hex file: what lies beside it is not looked at
    float clockFrequency = models::kDefaultClockFrequency;  // MHz
};

// Writes the warnings to standard output.
CommandResult CheckProgram(const CheckOptions& options);

}  // namespace corvane::cli
