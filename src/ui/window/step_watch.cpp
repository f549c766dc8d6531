#include "ui/window/step_watch.h"

#include <utility>

namespace corvane::ui {

SinceLastDraw StepWatch::Observe(const core::ProcessorState& state) {
    const std::int64_t cyclesBefore = std::exchange(clockCycles_, state.clockCycles);
    const std::int64_t instructionsBefore =
        std::exchange(instructionCount_, state.instructionCount);
    if (cyclesBefore == state.clockCycles && cyclesBefore > 0) {
        return SinceLastDraw::Nothing;
    }
    // The entry of an interrupt is a step that is no instruction.
    const bool isOneStep = state.clockCycles > cyclesBefore && cyclesBefore > 0 &&
                           state.instructionCount - instructionsBefore <= 1;
    return isOneStep ? SinceLastDraw::OneStep : SinceLastDraw::Other;
}

}  // namespace corvane::ui
