// Something that happens to the pins or the analog inputs of a running simulation.
#pragma once

#include <cstdint>

#include "core/pins.h"
#include "core/processor.h"

namespace corvane::inspect {

enum class StimulusAction : std::uint8_t { Toggle, Set, Analog };

struct StimulusEvent {
    std::int64_t step = 0;  // executed steps before the event
    StimulusAction action{};
    core::Pin pin{};  // of Toggle and Set
    int channel = 0;  // of Analog
    int value = 0;    // of Set (the level) and Analog
};

// Performs the event.
void Apply(const StimulusEvent& event, core::Processor& processor);

}  // namespace corvane::inspect
