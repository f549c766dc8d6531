// corvane-cli's command line: reads it, runs the command and tells the exit status.
#pragma once

namespace corvane::cli {

// What main is given, and what it returns.
int RunCommandLine(int argc, const char* const* argv);

}  // namespace corvane::cli
