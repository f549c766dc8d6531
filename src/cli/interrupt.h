// Ctrl-C and other requests to end.
#pragma once

#include <csignal>

namespace corvane::cli {

// From now on Ctrl-C (SIGINT), SIGTERM and the end of the terminal (SIGHUP) only raise a flag.
void CatchInterrupts();

// From now on Ctrl-C raises the flag; the other requests end the program at once.
void CatchCtrlC();

// As if none had come.
void ForgetInterrupt();

// True when one of them has come.
bool IsInterrupted();

// While it lives these signals wait, so that none comes between a file's first byte and its last.
class SignalsWait {
  public:
    SignalsWait();
    SignalsWait(const SignalsWait&) = delete;
    SignalsWait& operator=(const SignalsWait&) = delete;
    ~SignalsWait();

  private:
    sigset_t before_{};
};

}  // namespace corvane::cli
