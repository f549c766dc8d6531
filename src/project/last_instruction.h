// What the processor did last, in words.
#pragma once

#include <string>

#include "core/processor_state.h"

namespace corvane::project {

// "MOVLW 0x55", "INTERRUPT!", "UNRECOGNIZED", or nothing after a reset.
std::string LastInstructionText(const core::ProcessorState& state);

}  // namespace corvane::project
