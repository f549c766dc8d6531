#include "cli/interrupt.h"

#include <csignal>

namespace corvane::cli {

namespace {

// A signal handler can reach nothing but a global.
volatile std::sig_atomic_t interrupted = 0;

void RaiseFlag(int /*signal*/) {
    interrupted = 1;
}

}  // namespace

void CatchInterrupts() {
    std::signal(SIGINT, RaiseFlag);
    std::signal(SIGTERM, RaiseFlag);
    std::signal(SIGHUP, RaiseFlag);
}

bool IsInterrupted() {
    return interrupted != 0;
}

}  // namespace corvane::cli
