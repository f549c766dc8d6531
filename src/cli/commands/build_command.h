// corvane-cli build: compiles when needed, then assembles.
#pragma once

#include <optional>
#include <string>

#include "cli/command_result.h"
#include "models/defaults.h"
#include "project/gpasm_build.h"
#include "project/model_files.h"

namespace corvane::cli {

struct BuildOptions {
    project::ModelChoice model;
    std::string source;   // .bas or .asm
    std::string hexFile;  // empty: beside the source
    std::optional<int> configurationWord;
    float clockFrequency = models::kDefaultClockFrequency;  // MHz
    project::AssemblerChoice assembler{};                   // of an .asm file
};

// Writes what compile and assemble write; an error of the first leaves the others undone.
CommandResult Build(const BuildOptions& options);

}  // namespace corvane::cli
