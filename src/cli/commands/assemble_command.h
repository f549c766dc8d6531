// corvane-cli assemble: writes a program's .hex and .lst files.
#pragma once

#include <optional>
#include <string>

#include "cli/command_result.h"
#include "project/gpasm_build.h"
#include "project/model_files.h"

namespace corvane::cli {

struct AssembleOptions {
    project::ModelChoice model;
    std::string source;
    std::string hexFile;                   // empty: beside the source
    std::string listingFile;               // empty: beside the source
    std::optional<int> configurationWord;  // the model's default without it
    project::AssemblerChoice assembler{};
};

// The listing is written also when there are errors, an older .hex file then removed.
CommandResult Assemble(const AssembleOptions& options);

// Removes an older file that could be mistaken for the result of a translation that has failed;
// not when there is no source, which is a slip of the person's. Devices stay. The error, or
// nothing.
std::optional<std::string> RemoveOldResult(const std::string& hexFile, const std::string& source);

}  // namespace corvane::cli
