// Where two states differ, for a person to read.
#pragma once

#include <string>

#include "core/processor_state.h"

namespace corvane::core {

// "dataMemory[085h]: plain 3F, fast FF" for each field that differs, one a line; empty when equal.
std::string Difference(const ProcessorState& plain, const ProcessorState& fast);

}  // namespace corvane::core
