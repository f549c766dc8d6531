// Reading a program together with its source, for the check.
#pragma once

#include "cli/loaded_program.h"
#include "common/result.h"
#include "project/sourced_program.h"

namespace corvane::cli {

struct CheckedProgram {
    ModelFile modelFile;
    project::SourcedProgram program;
};

// The source of a .hex file is what lies beside it with the same name and makes the same words:
// its .cod file, else the .bas, else the .asm file.
common::Result<CheckedProgram, CommandResult> ReadCheckedProgram(const ProgramSource& source);

}  // namespace corvane::cli
