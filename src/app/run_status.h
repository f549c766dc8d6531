// Where the simulation stands, and why the last one ended, in a line for the person in front of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/app_settings.h"
#include "core/processor.h"

namespace corvane::app {

enum class RunCondition : std::uint8_t {
    Idle,          // nothing has run since the processor was reset
    Waiting,       // for Step
    AtBreakpoint,  // waiting, and pc has just come to a breakpoint
    Running,
    Going,    // through the history
    Ended,    // by a step: SLEEP, a word that is no instruction, the end of program memory
    Stopped,  // by the Stop command
};

// A position that has been gone back to.
struct PastPosition {
    std::int64_t step;
    std::int64_t lastStep;
};

struct RunStatus {
    RunCondition condition;
    SimulationRate rate;
    int pc;  // now, or when the last run ended
    std::optional<PastPosition> past{};
    std::string remark{};  // on the last command, or empty
};

// "Running, Extremely Fast", "Breakpoint at 000A: GOTO 0x004", "Stopped: SLEEP at 0003",
// "Waiting at 0003: GOTO 0x000, step 12 of 30. Not changed since Start."
std::string StatusText(const RunStatus& status, const core::Processor& processor);

}  // namespace corvane::app
