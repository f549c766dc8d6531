// The statements of the language, as they are read from a line's words, which they point to.
#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <variant>

#include "basic/variables.h"
#include "basic/words.h"

namespace corvane::basic {

// The row of a table whose name this is; null if there is none.
template <typename Row, std::size_t size>
const Row* FindRow(const std::array<Row, size>& table, std::string_view name) {
    const auto found = std::find_if(table.begin(), table.end(),
                                    [name](const Row& row) { return row.name == name; });
    return found == table.end() ? nullptr : &*found;
}

// What stands between operands: rows of tables, each beside the translation of its statement.
struct ArithmeticOperation;  // + - * / Mod
struct BitOperation;         // And Or Xor Nand Nor Nxor
struct Comparator;           // = <> > < >= <=

// As FindRow in each of them.
const ArithmeticOperation* FindArithmeticOperation(std::string_view name);
const BitOperation* FindBitOperation(std::string_view name);
const Comparator* FindComparator(std::string_view name);

// X, Not X
struct BitTest {
    std::string_view bit;
    bool isNegated;
};

// A op B
struct Comparison {
    std::string_view a;
    const Comparator* comparator;
    std::string_view b;
};

using Condition = std::variant<BitTest, Comparison>;

// Dim name As type
struct Declaration {
    std::string_view name;
    BasicType type;
};

// X = Sqr(Y)
struct SquareRoot {
    std::string_view target;
    std::string_view argument;
};

// X = Y
struct Assignment {
    std::string_view target;
    std::string_view value;
};

// X = A op B
struct Arithmetic {
    std::string_view target;
    std::string_view a;
    const ArithmeticOperation* operation;
    std::string_view b;
};

// X = Not Y
struct Negation {
    std::string_view target;
    std::string_view value;
};

// X = A op B
struct BitLogic {
    std::string_view target;
    std::string_view a;
    const BitOperation* operation;
    std::string_view b;
};

struct While {
    Condition condition;
};
struct Wend {};

// If condition Then
struct If {
    Condition condition;
};
struct Else {};
struct Endif {};

// For V = A To B Step S
struct For {
    std::string_view variable;
    std::string_view first;
    std::string_view last;
    std::string_view step;  // without its sign; "1" where none is written
    bool countsDown;
};

struct Next {
    std::string_view variable;
};

struct Goto {
    std::string_view label;
};

// Read A, D
struct Read {
    std::string_view address;
    std::string_view data;
};

// Write A, D
struct Write {
    std::string_view address;
    std::string_view data;
};

struct WaitMs {
    std::string_view time;
};

struct EmptyStatement {};
struct UnknownStatement {};

using Statement = std::variant<EmptyStatement, UnknownStatement, Declaration, SquareRoot,
                               Assignment, Arithmetic, Negation, BitLogic, While, Wend, If, Else,
                               Endif, For, Next, Goto, Read, Write, WaitMs>;

// The statement that the words of a line without its label are.
Statement ReadStatement(const Words& words);

}  // namespace corvane::basic
