// How a command ended.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace corvane::cli {

enum class Ending : std::uint8_t {
    Done,
    Refused,       // the input was not good, or a file could not be read or written
    WrongUsage,    // the command line makes no sense
    ProgramFault,  // the simulated program left its instructions
    Interrupted,   // Ctrl-C ended the run
    Failed,        // what was to be shown does not hold
};

struct CommandResult {
    Ending ending = Ending::Done;
    std::string message;  // for standard error: lines separated by LF, or nothing
};

// Endings with the message that says why.
inline CommandResult Refused(std::string message) {
    return {Ending::Refused, std::move(message)};
}
inline CommandResult WrongUsage(std::string message) {
    return {Ending::WrongUsage, std::move(message)};
}

}  // namespace corvane::cli
