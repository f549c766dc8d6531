// corvane-cli models: lists the microcontrollers.
#pragma once

#include "cli/command_result.h"

namespace corvane::cli {

// A line each on standard output: name, words, EEPROM bytes, configuration word, family.
CommandResult ListModels();

}  // namespace corvane::cli
