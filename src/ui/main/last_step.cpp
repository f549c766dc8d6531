#include "ui/main/last_step.h"

namespace corvane::ui {

void LastStep::Observe(const core::ProcessorState& state) {
    const SinceLastDraw since = watch_.Observe(state);
    if (since != SinceLastDraw::Nothing) {
        changed_ = {};
    }
    if (since == SinceLastDraw::OneStep) {
        for (std::size_t cell = 0; cell < state.dataMemory.size(); ++cell) {
            changed_.dataMemory[cell] = shown_.dataMemory[cell] != state.dataMemory[cell];
        }
        changed_.w = shown_.w != state.w;
        changed_.prescalerCount = shown_.prescalerCount != state.prescalerCount;
    }
    shown_ = {.dataMemory = state.dataMemory, .w = state.w, .prescalerCount = state.prescalerCount};
}

bool LastStep::HasChanged(int address) const {
    return address == models::kPrescalerAddress
               ? changed_.prescalerCount
               : changed_.dataMemory.test(static_cast<std::size_t>(address));
}

}  // namespace corvane::ui
