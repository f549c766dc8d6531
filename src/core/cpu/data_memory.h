// Cells that do more than hold a value, as instructions reach them.
// Data sheet: "Data Memory Organization".
#pragma once

#include <cstddef>

#include "core/processor.h"

namespace corvane::core {

// Reads and writes a claimed cell while the state is up to date. Values are 0..255. A write may
// move the slice's end, and so may a read that finds something due.
int ReadClaimed(Processor& processor, std::size_t cell);
void WriteClaimed(Processor& processor, std::size_t cell, int value);

// Works out which cell each address means, and lets the peripherals claim theirs. Needed once.
void DeriveCellAccess(Processor& processor);

}  // namespace corvane::core
