// The names that a program may use, and what the words of its statements stand for.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "common/result.h"
#include "models/symbol_lines.h"

namespace corvane::basic {

enum class BasicType {
    Bit,
    Byte,
    Word,  // low byte first
};

struct Variable {
    BasicType type;
    int address;  // data-memory address of the (first) byte
    int bit = 0;  // 0..7, of a Bit
};

struct DeclaredVariable {
    std::string name;
    Variable variable;
};

// Whether a word names a variable of this type.
inline bool Is(const std::optional<Variable>& named, BasicType type) {
    return named && named->type == type;
}

struct Constant {
    int value;  // 0..65535
};

using Operand = std::variant<Variable, Constant>;

struct Register {
    int address;  // in data memory
};

struct Literal {
    int value;  // 0..255
};

// One byte of an operand.
using ByteOperand = std::variant<Register, Literal>;

// The halves of an operand: of a variable the cells, the high one behind the low one; of a constant
// the bytes of its value.
Register LowByte(const Variable& variable);
Register HighByte(const Variable& variable);
ByteOperand LowByte(const Operand& operand);
ByteOperand HighByte(const Operand& operand);

// The operand that a word is: the variable that it names, or else the constant of this type that it
// must be: 0, 1, True or False of a Bit, 0..255 of a Byte, 0..65535 of a Word.
common::Result<Operand> ReadOperand(const std::optional<Variable>& named, std::string_view word,
                                    BasicType typeOfConstant);

// Small letters, digits and "_", no digit first.
bool IsValidName(std::string_view name);

// The model's registers and the declared variables.
class VariableTable {
  public:
    explicit VariableTable(const std::vector<models::PredefinedSymbol>& registers);

    bool Contains(std::string_view name) const { return entries_.contains(name); }

    // An entry that the table does not contain yet.
    void Add(std::string_view name, const Variable& variable) { entries_.emplace(name, variable); }

    // The variable of "name", "name.0" to "name.7" (a bit of a Byte), "name.LB" or "name.HB" (a
    // byte of a Word); nothing if there is no such variable.
    std::optional<Variable> Find(std::string_view reference) const;

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const {
            return std::hash<std::string_view>{}(name);
        }
    };

    std::unordered_map<std::string, Variable, Hash, std::equal_to<>> entries_;
};

}  // namespace corvane::basic
