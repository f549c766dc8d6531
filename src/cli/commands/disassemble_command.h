// corvane-cli disassemble: the listing of a program file.
#pragma once

#include <string>

#include "cli/command_result.h"
#include "project/model_files.h"

namespace corvane::cli {

struct DisassembleOptions {
    project::ModelChoice model;
    std::string program;  // .hex
    std::string listingFile = "-";
    bool withoutOpcodes = false;
};

// Refused when nothing is loaded.
CommandResult Disassemble(const DisassembleOptions& options);

}  // namespace corvane::cli
