#include "cli/interrupt.h"

#include <csignal>
#include <initializer_list>

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
    // Who has started it so that it outlives the terminal means it.
    if (std::signal(SIGHUP, RaiseFlag) == SIG_IGN) {
        std::signal(SIGHUP, SIG_IGN);
    }
}

void CatchCtrlC() {
    std::signal(SIGINT, RaiseFlag);
}

void ForgetInterrupt() {
    interrupted = 0;
}

SignalsWait::SignalsWait() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&signals, number);
    }
    sigprocmask(SIG_BLOCK, &signals, &before_);
}

SignalsWait::~SignalsWait() {
    sigprocmask(SIG_SETMASK, &before_, nullptr);
}

bool IsInterrupted() {
    return interrupted != 0;
}

}  // namespace corvane::cli
