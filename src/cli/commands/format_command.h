// corvane-cli format: a BASIC text as the editor rewrites it.
#pragma once

#include <string>

#include "cli/command_result.h"
#include "project/model_files.h"

namespace corvane::cli {

struct FormatOptions {
    project::ModelChoice model;
    std::string source;
    bool inPlace = false;  // into the source file instead of standard output
};

// Writes nothing but the text.
CommandResult Format(const FormatOptions& options);

}  // namespace corvane::cli
