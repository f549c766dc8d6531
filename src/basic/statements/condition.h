// The conditions of While and If.
#pragma once

#include <string_view>

#include "basic/statements/statement.h"
#include "basic/translation.h"
#include "common/result.h"

namespace corvane::basic {

// Writes code that jumps to the label when the condition is false. Returns the bank that is
// selected when the jump arrives.
common::Result<int> JumpIfFalse(Translation& translation, const Condition& condition,
                                std::string_view label);

}  // namespace corvane::basic
