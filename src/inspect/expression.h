// Expressions over the simulated chip, its pins and the program's names: conditions of a run, of
// tests and of the debugger.
//
//   expr    = and { "or" and }            shift = sum { ("<<" | ">>") sum }
//   and     = not { "and" not }           sum   = prod { ("+" | "-") prod }
//   not     = "not" not | cmp             prod  = unary { ("*" | "/" | "%") unary }
//   cmp     = bits [ (== != < <= > >=) bits | "in" bits ".." bits ]
//   bits    = xor { "|" xor }   xor = conj { "^" conj }   conj = shift { "&" shift }
//   unary   = ("-" | "~") unary | primary
//   primary = number [unit] | name | "@" name | name "." bit | name "[" expr "]"
//           | name "(" argument ")" | "(" expr ")"
//
// Numbers have 64 bits and wrap; 0 is false. Names and words are read in any case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "inspect/clock.h"
#include "inspect/names.h"
#include "inspect/quantity.h"

namespace corvane::inspect {

enum class Operator : std::uint8_t {
    Number,       // pushes the number
    Load,         // pushes the quantity's value
    LoadAtIndex,  // replaces the index with the value there
    Negate,
    Complement,
    Not,
    Multiply,
    Divide,
    Remainder,
    Add,
    Subtract,
    ShiftLeft,
    ShiftRight,
    And,
    ExclusiveOr,
    Or,
    Equal,
    NotEqual,
    Less,
    LessOrEqual,
    Greater,
    GreaterOrEqual,
    InRange,      // of three numbers whether the first lies between the others
    ToTruth,      // 0 or 1
    SkipIfFalse,  // "and": leaves 0 and goes to the target, or takes the number away
    SkipIfTrue,   // "or": leaves 1 and goes to the target, or takes the number away
};

// One operation on a stack of numbers.
struct Operation {
    Operator op;
    Quantity quantity{};      // of loads
    std::int64_t number = 0;  // of Number; the index behind which the target stands
};

// A name with what belongs to it, "COUNT" or "ram[COUNT + 1]", and the operations that yield it.
struct NamedPart {
    std::string text;
    std::size_t begin;
    std::size_t end;
};

struct Expression {
    std::string text;
    std::vector<Operation> code;
    std::vector<NamedPart> names;      // in the text's order, each once
    std::vector<Quantity> quantities;  // all that it may look at
};

struct ExpressionError {
    int column;  // from 1
    std::string message;
};

// What names and units mean in an expression.
struct Language {
    const Names& names;
    Clock clock;
};

constexpr std::size_t kDeepestStack = 64;  // numbers; what needs more is refused

// The whole text as an expression, or the first error in it.
common::Result<Expression, ExpressionError> ParseExpression(std::string_view text,
                                                            const Language& language);

// A number, or why there is none: "division by 0".
struct Evaluation {
    std::int64_t value = 0;
    const char* error = nullptr;
};

// The value of an expression, or of a name in it, at this moment.
Evaluation Evaluate(const Expression& expression, const Moment& moment);
Evaluation Evaluate(const Expression& expression, const NamedPart& part, const Moment& moment);

}  // namespace corvane::inspect
