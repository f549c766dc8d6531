// Which values the last step has changed, so that the tables can set them off.
#pragma once

#include <array>
#include <bitset>
#include <cstdint>

#include "core/processor_state.h"
#include "ui/window/step_watch.h"

namespace corvane::ui {

class LastStep {
  public:
    // To be called once for each redraw. Changes count only when it comes exactly one step after
    // the one before. What a person changes between two steps does not count.
    void Observe(const core::ProcessorState& state);

    bool HasChangedW() const { return changed_.w; }
    // A data-memory address, or models::kPrescalerAddress.
    bool HasChanged(int address) const;

  private:
    struct Values {
        std::array<std::uint8_t, models::kDataMemorySize> dataMemory{};
        int w = 0;
        int prescalerCount = 0;
    };
    struct Changes {
        std::bitset<models::kDataMemorySize> dataMemory;
        bool w = false;
        bool prescalerCount = false;
    };

    StepWatch watch_;
    Values shown_;
    Changes changed_;
};

}  // namespace corvane::ui
