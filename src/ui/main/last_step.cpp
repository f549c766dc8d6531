#include "ui/main/last_step.h"

namespace corvane::ui {

void LastStep::Observe(const core::ProcessorState& state) {
    if (state.clockCycles == now_.clockCycles && state.clockCycles != 0) {
        return;  // the same step is drawn once more
    }
    before_ = now_;
    now_ = {.dataMemory = state.dataMemory,
            .w = state.w,
            .prescalerCount = state.prescalerCount,
            .clockCycles = state.clockCycles,
            .instructionCount = state.instructionCount};
    // The entry of an interrupt is a step that is no instruction.
    isOneStep_ = now_.clockCycles > before_.clockCycles && before_.clockCycles > 0 &&
                 now_.instructionCount - before_.instructionCount <= 1;
}

bool LastStep::HasChanged(int address) const {
    if (!isOneStep_) {
        return false;
    }
    if (address == models::kPrescalerAddress) {
        return before_.prescalerCount != now_.prescalerCount;
    }
    const auto cell = static_cast<std::size_t>(address);
    return before_.dataMemory.at(cell) != now_.dataMemory.at(cell);
}

}  // namespace corvane::ui
