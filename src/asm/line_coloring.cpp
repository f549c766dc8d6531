#include "asm/line_coloring.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <tuple>

#include "asm/statement.h"
#include "common/text.h"
#include "isa/instruction_set.h"

namespace corvane::assembler {

using common::ColoredSpan;
using common::TextColor;

namespace {

// The instructions by group, those of a group by their names, then the directives.
std::vector<std::string_view> Keywords() {
    std::vector<const isa::Instruction*> instructions;
    instructions.reserve(isa::kInstructions.size());
    for (const isa::Instruction& row : isa::kInstructions) {
        instructions.push_back(&row);
    }
    std::sort(instructions.begin(), instructions.end(),
              [](const isa::Instruction* a, const isa::Instruction* b) {
                  return std::tie(a->group, a->mnemonic) < std::tie(b->group, b->mnemonic);
              });
    std::vector<std::string_view> keywords;
    keywords.reserve(instructions.size() + kDirectives.size());
    for (const isa::Instruction* row : instructions) {
        keywords.push_back(row->mnemonic);
    }
    for (const Directive& directive : kDirectives) {
        keywords.push_back(directive.name);
    }
    return keywords;
}

// Where the word stands between blanks or tabs, in a text that begins and ends with a blank.
std::optional<std::size_t> FindWord(const std::string& text, std::string_view word) {
    if (text.find(word) == std::string::npos) {
        return std::nullopt;
    }
    for (const char before : {' ', '\t'}) {
        for (const char after : {' ', '\t'}) {
            const std::size_t found = text.find(before + std::string(word) + after);
            if (found != std::string::npos) {
                return found + 1;
            }
        }
    }
    return std::nullopt;
}

std::optional<ColoredSpan> FindKeyword(std::string_view line) {
    const std::string text = " " + common::ToUpper(common::TrimRight(line)) + " ";
    static const std::vector<std::string_view> kKeywords = Keywords();
    for (const std::string_view keyword : kKeywords) {
        if (const std::optional<std::size_t> found = FindWord(text, keyword)) {
            return ColoredSpan{static_cast<int>(*found) - 1, static_cast<int>(keyword.size()),
                               TextColor::Keyword};
        }
    }
    return std::nullopt;
}

}  // namespace

std::vector<ColoredSpan> ColorLine(std::string_view line) {
    std::vector<ColoredSpan> spans;
    if (const auto keyword = FindKeyword(line)) {
        spans.push_back(*keyword);
    }
    if (const std::size_t comment = line.find(';'); comment != std::string_view::npos) {
        spans.push_back({static_cast<int>(comment), static_cast<int>(line.size() - comment),
                         TextColor::AssemblerComment});
    }
    return spans;
}

}  // namespace corvane::assembler
