// How much has been simulated since a view was drawn last, so that it can set off what the last
// step has changed.
#pragma once

#include <cstdint>

#include "core/processor_state.h"

namespace corvane::ui {

enum class SinceLastDraw : std::uint8_t { Nothing, OneStep, Other };

class StepWatch {
  public:
    // To be called once for each redraw.
    SinceLastDraw Observe(const core::ProcessorState& state);

  private:
    std::int64_t clockCycles_ = 0;
    std::int64_t instructionCount_ = 0;
};

}  // namespace corvane::ui
