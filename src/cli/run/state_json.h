// The processor's state as JSON.
#pragma once

#include <string>

#include "core/processor.h"

namespace corvane::cli {

// One object, one member a line, LF line ends. Integers are decimal, memories are upper-case
// hexadecimal text. loadedWords is one past the program's highest word.
std::string StateJson(const core::Processor& processor, int loadedWords);

}  // namespace corvane::cli
