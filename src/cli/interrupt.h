// Ctrl-C while a program is simulated.
#pragma once

namespace corvane::cli {

// From now on Ctrl-C (SIGINT), SIGTERM and the end of the terminal (SIGHUP) only raise a flag.
void CatchInterrupts();

// True when one of them has come.
bool IsInterrupted();

}  // namespace corvane::cli
