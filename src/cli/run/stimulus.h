// Stimulus files: what happens to the pins and analog inputs, and after which step.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "inspect/stimulus_event.h"
#include "models/catalogue.h"

namespace corvane::cli {

using inspect::StimulusAction;
using inspect::StimulusEvent;

// Lines "STEP toggle PIN", "STEP set PIN 0|1" and "STEP analog ANk VALUE" in ascending order of
// STEP; empty lines and those that begin with "#" are ignored. The error is complete and names the
// first bad line.
common::Result<std::vector<StimulusEvent>> ReadStimulus(const std::string& file,
                                                        std::string_view text,
                                                        const models::Model& model);

// One such line; the error says only what is wrong with it.
common::Result<StimulusEvent> ReadStimulusEvent(std::string_view line, const models::Model& model);

}  // namespace corvane::cli
