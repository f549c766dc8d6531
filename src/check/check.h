// What is wrong with a program, found by following its paths without running it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "models/description.h"

namespace corvane::check {

enum class Rule : std::uint8_t { Bank, Page, Table, Stack, RunsOff, IsrContext, Unreachable };

constexpr int kRuleCount = 7;

// "bank", "runs-off": the rule's name in messages and options.
std::string_view RuleName(Rule rule);
std::optional<Rule> FindRule(std::string_view name);

// What a source line names as the operand of its word, as the source means it.
struct Operand {
    std::string name;  // as written; no operand that is a mere number
    int value = 0;     // data-memory address 0..1FFh of a register, program address of a label
};

struct Program {
    std::vector<std::uint16_t> words;              // as many as program memory has
    std::vector<bool> isProgrammed;                // by address: the program has a word there
    std::vector<std::optional<Operand>> operands;  // by address: of registers and of labels
};

struct Note {
    int address = 0;  // of a program word
    std::string text;
};

struct Finding {
    Rule rule = Rule::Bank;
    int address = 0;  // of the word that is told about
    std::string text;
    std::vector<Note> path;  // how the program comes there
};

struct Findings {
    std::vector<Finding> list;  // by address, then in the order of the rules
    bool isComplete = true;     // false when the program has too many paths to follow them all
};

// Follows every path that the branches allow. RP0, RP1, PCLATH, W and the depth of calls are known
// as far as the words tell; other registers and the flags are not. The vectors of the program are
// as long as the model's program memory.
Findings Check(const Program& program, const models::ModelDescription& description);

}  // namespace corvane::check
