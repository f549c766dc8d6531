// The I/O ports, for those who change pins between two steps. Data sheet: "I/O Ports".
#pragma once

#include "core/processor.h"

namespace corvane::core {

// Brings pinInputs, portValues and analogValues of all ports up to date with latches, directions
// and the use of the pins.
void UpdateAllPorts(Processor& processor);

}  // namespace corvane::core
