// The names of one assembly. The first definition of a name is the one that counts.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "models/symbol_lines.h"

namespace corvane::assembler {

constexpr std::size_t kNameWidth = 32;  // characters that a label or an operand keeps

class SymbolTable {
  public:
    // Longer names are known by their first kNameWidth characters.
    explicit SymbolTable(const std::vector<models::PredefinedSymbol>& predefinedSymbols);

    // False, and nothing changes, when the name is defined already. The value is 0 at first.
    bool Define(std::string_view name);

    void SetValue(std::string_view name, int value);

    std::optional<int> Find(std::string_view name) const;

    // Whether the name was there before the first line was read.
    bool IsPredefined(std::string_view name) const;

  private:
    struct Hash {
        // The standard's spelling of "look up without making a string".
        using is_transparent = void;  // NOLINT(readability-identifier-naming)
        std::size_t operator()(std::string_view name) const {
            return std::hash<std::string_view>{}(name);
        }
    };

    struct Symbol {
        int value;
        bool isPredefined;
    };

    std::unordered_map<std::string, Symbol, Hash, std::equal_to<>> symbols_;
};

}  // namespace corvane::assembler
