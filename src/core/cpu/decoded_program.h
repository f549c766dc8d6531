// The decoded program: which entries are decoded, and where a run must stop.
#pragma once

#include "core/processor.h"

namespace corvane::core {

// Forgets all that was decoded. Needed before the first run and after program memory changed.
void ForgetDecodedProgram(Processor& processor);

// Sets the bits of why a run ends at this address (0..8191).
void SetStopMarks(Processor& processor, int address, int marks);

// The decoded instruction at pc in the bank that STATUS selects.
DecodedWord* EntryAtPc(Processor& processor);

// The function that executes the instruction at the entry. A run comes to an entry with marks by
// another one, which ends it.
ExecuteFunction DecodeEntry(Processor& processor, DecodedWord* entry);

}  // namespace corvane::core
