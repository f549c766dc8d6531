// The data EEPROM. Data sheet: "Data EEPROM Memory".
#pragma once

#include "core/processor.h"

namespace corvane::core {

// One step of reading, of watching for the unlock sequence and of a write in progress.
void EepromUpdate(Processor& processor);

// True for the words whose text is "MOVLW 0x55", which begins the unlock sequence.
bool BeginsUnlock(int word);

}  // namespace corvane::core
