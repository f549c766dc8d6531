#include "cli/commands/debug_command.h"

#include <unistd.h>

#include <array>
#include <iostream>
#include <optional>
#include <string>

#include "cli/debug/debugger.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/run/simulation.h"

namespace corvane::cli {

namespace {

// Each answer is written out before the next command is read.
std::optional<std::string> Converse(Debugger& debugger) {
    const bool isTerminal = isatty(STDIN_FILENO) == 1;
    std::string line;
    while (!debugger.HasQuit()) {
        if (isTerminal) {
            if (auto error = WriteOutput("-", "(corvane) ")) {
                return error;
            }
        }
        if (!std::getline(std::cin, line)) {
            return std::nullopt;
        }
        ForgetInterrupt();
        if (auto error = WriteOutput("-", debugger.Answer(line))) {
            return error;
        }
    }
    return std::nullopt;
}

}  // namespace

CommandResult Debug(const RunOptions& options) {
    if (const std::optional<std::string> error = ProgramUsageError(options)) {
        return WrongUsage(*error);
    }
    common::Result<Simulation, CommandResult> simulation = PrepareSimulation(options);
    if (!simulation) {
        return std::move(simulation.error);
    }
    CatchCtrlC();
    Start(*simulation);
    Debugger debugger(*simulation, options);
    const std::optional<std::string> error = Converse(debugger);
    return error ? Refused(*error) : CommandResult{};
}

}  // namespace corvane::cli
