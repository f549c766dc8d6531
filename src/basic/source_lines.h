// The source text as the passes see it: prepared lines, cut into words.
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::basic {

constexpr std::size_t kMaxWords = 10;

// The words of a line. They point into the line.
struct Words {
    std::array<std::string_view, kMaxWords> word;
    std::size_t count = 0;

    std::string_view operator[](std::size_t index) const { return word[index]; }
};

struct SourceLine {
    std::string statement;       // without comment and label
    std::string userLabel;       // as written before the colon; empty for an unlabelled line
    std::string generatedLabel;  // "L0001"
};

// Tabs and runs of blanks as one blank, without outer blanks and without the comment.
std::string PrepareLine(std::string_view line);

// The prepared lines of a text; labels are still part of the statements.
std::vector<SourceLine> PrepareSource(std::string_view text);

// The words of a prepared line; nothing when there are more than ten.
std::optional<Words> SplitWords(std::string_view line);

// Stands in a pattern for every word.
inline constexpr std::string_view kAnyWord;

// Whether the line has exactly the words of the pattern.
bool Matches(const Words& words, std::initializer_list<std::string_view> pattern);

}  // namespace corvane::basic
