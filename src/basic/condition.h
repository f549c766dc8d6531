// The conditions of While and If.
#pragma once

#include <optional>
#include <string_view>

#include "basic/source_lines.h"
#include "basic/translation.h"

namespace corvane::basic {

struct Condition {
    bool isNegated = false;
    std::string_view a;
    std::string_view operation;  // of a comparison, or empty
    std::string_view b;
};

// The condition that these words are: X, Not X or A op B.
std::optional<Condition> ReadCondition(const Words& words, std::size_t first, std::size_t count);

// Writes code that jumps to the label when the condition is false. bankAtLabel becomes the bank
// that is selected when the jump arrives.
Problem JumpIfFalse(Translation& translation, const Condition& condition, std::string_view label,
                    int& bankAtLabel);

}  // namespace corvane::basic
