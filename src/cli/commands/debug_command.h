// corvane-cli debug: a debugger for terminals and scripts.
#pragma once

#include "cli/command_result.h"
#include "cli/commands/run_command.h"

namespace corvane::cli {

// Reads commands line by line from standard input and answers each on standard output. Only the
// options that say what runs, and how far, are looked at.
CommandResult Debug(const RunOptions& options);

}  // namespace corvane::cli
