// corvane-cli disassemble: the listing of a program file.
#pragma once

#include <string>

#include "cli/command_result.h"
#include "cli/model_files.h"

namespace corvane::cli {

struct DisassembleOptions {
    ModelOptions model;
    std::string program;  // .hex
    std::string listingFile = "-";
    bool withoutOpcodes = false;
};

// Refused when nothing is loaded.
CommandResult Disassemble(const DisassembleOptions& options);

}  // namespace corvane::cli
