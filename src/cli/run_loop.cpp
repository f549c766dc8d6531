#include "cli/run_loop.h"

#include <algorithm>

#include "cli/interrupt.h"
#include "core/execution.h"

namespace corvane::cli {

namespace {

constexpr std::int64_t kLongestSlice = 1'000'000;  // steps between two looks at Ctrl-C

// The longest step: a skip by an instruction that writes PCL takes three instruction cycles.
constexpr std::int64_t kMostClocksOfAStep = std::int64_t{3} * core::kClocksPerCycle;

// Steps that can be executed without passing a limit unseen; none when one is reached.
std::int64_t StepsToLimits(const RunLimits& limits, std::int64_t stepsDone,
                           std::int64_t clockCycles) {
    std::int64_t steps = kLongestSlice;
    if (limits.steps) {
        steps = std::min(steps, *limits.steps - stepsDone);
    }
    if (limits.clockCycles && clockCycles < *limits.clockCycles) {
        const std::int64_t clocksLeft = *limits.clockCycles - clockCycles;
        steps = std::min(steps, (clocksLeft - 1) / kMostClocksOfAStep + 1);
    } else if (limits.clockCycles) {
        steps = 0;
    }
    return steps;
}

struct TracedRun {
    core::RunResult result;
    std::optional<std::string> error;
};

TracedRun RunTraced(core::Processor& processor, std::int64_t stepsDone, std::int64_t maxSteps,
                    Trace& trace) {
    core::RunResult result = {0, false};
    while (result.steps < maxSteps && !processor.state.stopRequested && !result.breakpointReached) {
        result.breakpointReached = core::ExecuteStep(processor).breakpointReached;
        ++result.steps;
        if (auto error = trace.AddLine(stepsDone + result.steps, processor.state)) {
            return {result, std::move(error)};
        }
    }
    return {result, std::nullopt};
}

}  // namespace

std::optional<std::string> RunToEnd(core::Processor& processor, const RunLimits& limits,
                                    const std::vector<StimulusEvent>& events, Trace* trace) {
    std::int64_t stepsDone = 0;
    bool breakpointReached = false;
    auto event = events.begin();
    while (!processor.state.stopRequested && !breakpointReached && !IsInterrupted()) {
        std::int64_t slice = StepsToLimits(limits, stepsDone, processor.state.clockCycles);
        if (slice == 0) {
            break;
        }
        for (; event != events.end() && event->step == stepsDone; ++event) {
            Apply(*event, processor);
        }
        if (event != events.end()) {
            slice = std::min(slice, event->step - stepsDone);
        }
        const TracedRun run = trace != nullptr
                                  ? RunTraced(processor, stepsDone, slice, *trace)
                                  : TracedRun{core::Run(processor, slice), std::nullopt};
        if (run.error) {
            return run.error;
        }
        stepsDone += run.result.steps;
        breakpointReached = run.result.breakpointReached;
    }
    return std::nullopt;
}

}  // namespace corvane::cli
