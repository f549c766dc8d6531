// The names that a program may use, and what a word of a statement stands for.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "basic/problem.h"
#include "models/symbol_lines.h"

namespace corvane::basic {

enum class BasicType {
    None,  // no known variable
    Bit,
    Byte,
    Word,  // low byte first
};

// A word of a statement: a variable, or else a constant that is still to be checked.
struct Operand {
    BasicType type = BasicType::None;
    int address = 0;        // data-memory address of the variable's (first) byte
    int bit = 0;            // 0..7, of a Bit
    int value = 0;          // of a constant that CheckConstant has accepted
    std::string_view text;  // the word

    bool IsConstant() const { return type == BasicType::None; }
};

// One byte of an operand: a register or a literal.
struct ByteOperand {
    bool isConstant;
    int value;  // data-memory address, or 0..255
};

// The halves of an operand: of a variable the cells, the high one behind the low one; of a constant
// the bytes of its value.
ByteOperand LowByte(const Operand& operand);
ByteOperand HighByte(const Operand& operand);

// Reads the operand's text as a constant of this type into its value: 0, 1, True or False of a Bit,
// 0..255 of a Byte, 0..65535 of a Word.
Problem CheckConstant(Operand& operand, BasicType type);

// Small letters, digits and "_", no digit first.
bool IsValidName(std::string_view name);

// The model's registers and the declared variables.
class VariableTable {
  public:
    explicit VariableTable(const std::vector<models::PredefinedSymbol>& registers);

    bool Contains(std::string_view name) const { return entries_.contains(name); }

    // An entry that the table does not contain yet.
    void Add(std::string_view name, const Operand& variable) { entries_.emplace(name, variable); }

    // The operand of "name", "name.0" to "name.7" (a bit of a Byte), "name.LB" or "name.HB" (a byte
    // of a Word); without type if there is no such variable.
    Operand Find(std::string_view reference) const;

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const {
            return std::hash<std::string_view>{}(name);
        }
    };

    std::unordered_map<std::string, Operand, Hash, std::equal_to<>> entries_;
};

}  // namespace corvane::basic
