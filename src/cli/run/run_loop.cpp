#include "cli/run/run_loop.h"

#include <algorithm>

#include "cli/interrupt.h"

namespace corvane::cli {

namespace {

constexpr std::int64_t kLongestSlice = 1'000'000;  // steps between two looks at Ctrl-C

bool IsReached(const RunLimits& limits, const inspect::ObservedRun& run) {
    return (limits.steps && run.Steps() >= *limits.steps) ||
           (limits.clockCycles && run.Now().processor.state.clockCycles >= *limits.clockCycles);
}

}  // namespace

common::Result<inspect::Pause> RunToEnd(inspect::ObservedRun& run, const RunLimits& limits,
                                        const std::vector<StimulusEvent>& events,
                                        Recordings& recordings) {
    using RunResult = common::Result<inspect::Pause>;
    inspect::Pause pause = {inspect::PauseReason::Limit};
    auto event = events.begin();
    while (pause.reason == inspect::PauseReason::Limit && !IsReached(limits, run) &&
           !IsInterrupted()) {
        for (; event != events.end() && event->step == run.Steps(); ++event) {
            Apply(*event, run.Processor());
            run.InputChanged();
        }
        std::int64_t slice =
            limits.steps ? std::min(kLongestSlice, *limits.steps - run.Steps()) : kLongestSlice;
        if (event != events.end()) {
            slice = std::min(slice, event->step - run.Steps());
        }
        pause = run.Advance(slice, limits.clockCycles);
        if (const std::optional<std::string> error = recordings.Flush()) {
            return RunResult::Failure(*error);
        }
    }
    return RunResult::Success(pause);
}

}  // namespace corvane::cli
