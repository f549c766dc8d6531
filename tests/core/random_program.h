// Programs that nobody would write, made to reach every rule of the simulated chip.
#pragma once

#include <cstdint>
#include <vector>

#include "core/random.h"
#include "models/catalogue.h"

namespace corvane::core {

// As many words as the model has: a jump, an interrupt handler at 0004h, and a main program of
// fragments (arithmetic, bank changes, writes to special registers, EEPROM and converter sequences,
// whole and broken, calls, computed jumps) to the last word.
std::vector<std::uint16_t> RandomProgram(const models::Model& model, Random& random);

// A program as people write them, which returns to its start: nested loops that count or wait for
// something, with calls of others, while Timer0 runs and perhaps interrupts come. Shorter than 512
// words.
std::vector<std::uint16_t> RandomLoops(const models::Model& model, Random& random);

// A data-memory address of a register that does something, on this family.
int RandomSpecialRegister(models::ModelFamily family, Random& random);

}  // namespace corvane::core
