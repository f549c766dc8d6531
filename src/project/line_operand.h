// What an assembler source line names as the operand of its word, in the field's common dialect.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::project {

struct LineOperand {
    std::string name;  // as written
    int value = 0;     // as the source means it, with the bank or the page
};

// The value of a name; nothing for one that is not known.
using NameLookup = std::function<std::optional<int>(std::string_view name)>;

// Reads the first operand of a line whose mnemonic is that of its word: a name, a name and a
// number ("TABLE+1"), or a place relative to its own address ("$-1"). Nothing for a line of another
// form, for another mnemonic, and for a value that is not the word's.
std::optional<LineOperand> ReadLineOperand(std::string_view line, int word, int address,
                                           const NameLookup& lookUp);

}  // namespace corvane::project
