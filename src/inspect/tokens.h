// The words and signs of an expression.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "inspect/clock.h"

namespace corvane::inspect {

enum class TokenKind : std::uint8_t { Number, Name, Sign, End, Bad };

struct Token {
    TokenKind kind = TokenKind::End;
    std::string_view text{};   // as written; of a Bad one what is wrong with it
    std::size_t position = 0;  // where it begins
    Decimal number{0, 0};      // of a Number; only one with decimals digits has a fraction
};

// The token at or behind this position. A "%" is the beginning of a binary number where an operand
// is expected, else a sign.
Token ReadToken(std::string_view text, std::size_t position, bool operandExpected);

}  // namespace corvane::inspect
