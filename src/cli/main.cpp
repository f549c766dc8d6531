#include <csignal>
#include <new>

#include "cli/command_line.h"
#include "cli/diagnostics.h"

int main(int argc, char** argv) {
    // A reader that has gone away and a file that grows too large are failed writes like any other.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return corvane::cli::RunCommandLine(argc, argv);
    } catch (const std::bad_alloc&) {
        corvane::cli::WriteStandardError("corvane-cli: error: Out of memory.");
        return 1;
    }
}
