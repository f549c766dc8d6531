// Stimulus files: what happens to the pins and analog inputs, and after which step.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "core/pins.h"
#include "core/processor.h"
#include "models/catalogue.h"

namespace corvane::cli {

enum class StimulusAction : std::uint8_t { Toggle, Set, Analog };

struct StimulusEvent {
    std::int64_t step;  // executed steps before the event
    StimulusAction action;
    core::Pin pin;  // of Toggle and Set
    int channel;    // of Analog
    int value;      // of Set (the level) and Analog
};

// Lines "STEP toggle PIN", "STEP set PIN 0|1" and "STEP analog ANk VALUE" in ascending order of
// STEP; empty lines and those that begin with "#" are ignored. The error is complete and names the
// first bad line.
common::Result<std::vector<StimulusEvent>> ReadStimulus(const std::string& file,
                                                        std::string_view text,
                                                        const models::Model& model);

// Performs the event on a running simulation.
void Apply(const StimulusEvent& event, core::Processor& processor);

}  // namespace corvane::cli
