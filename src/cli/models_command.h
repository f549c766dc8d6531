// corvane-cli models: lists the microcontrollers.
#pragma once

#include "cli/command_result.h"

namespace corvane::cli {

CommandResult ListModels();

}  // namespace corvane::cli
