#include "ui/main/last_step.h"

namespace corvane::ui {

void LastStep::Observe(const core::ProcessorState& state) {
    const SinceLastDraw since = watch_.Observe(state);
    if (since == SinceLastDraw::Nothing) {
        return;
    }
    before_ = now_;
    now_ = {.dataMemory = state.dataMemory, .w = state.w, .prescalerCount = state.prescalerCount};
    isOneStep_ = since == SinceLastDraw::OneStep;
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
