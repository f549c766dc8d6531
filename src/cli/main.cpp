#include <csignal>

#include "cli/command_line.h"

int main(int argc, char** argv) {
    // A reader that has gone away is a failed write like any other.
    std::signal(SIGPIPE, SIG_IGN);
    return corvane::cli::RunCommandLine(argc, argv);
}
