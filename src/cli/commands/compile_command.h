// corvane-cli compile: writes the assembler text of a BASIC program.
#pragma once

#include <string>

#include "cli/command_result.h"
#include "models/defaults.h"
#include "project/model_files.h"

namespace corvane::cli {

struct CompileOptions {
    project::ModelChoice model;
    std::string source;
    std::string assemblerFile;                              // empty: beside the source
    float clockFrequency = models::kDefaultClockFrequency;  // MHz
};

// An error changes no file.
CommandResult Compile(const CompileOptions& options);

}  // namespace corvane::cli
