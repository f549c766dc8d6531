// Loading the program that a command works with.
#pragma once

#include "cli/command_result.h"
#include "common/result.h"
#include "project/loaded_program.h"

namespace corvane::cli {

// Writes the messages to standard error. The error is how the command ends then.
common::Result<project::LoadedProgram, CommandResult> LoadOrReport(project::ProgramSource source);

}  // namespace corvane::cli
