// A source line as the passes see it: prepared, then cut into words.
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

// The words of a line. They point into the line; those that it does not have are empty.
struct Words {
    std::array<std::string_view, kMaxWords> word;
    std::size_t count = 0;

    std::string_view operator[](std::size_t index) const { return word[index]; }
};

// Each line of a text with tabs and runs of blanks as one blank, without outer blanks and without
// its comment.
std::vector<std::string> PrepareLines(std::string_view text);

// The words of a prepared line; nothing when there are more than ten.
std::optional<Words> SplitWords(std::string_view line);

// The words behind the first.
Words WithoutFirst(const Words& words);

// Stands in a pattern for every word.
inline constexpr std::string_view kAnyWord;

// Whether the line has exactly the words of the pattern.
bool Matches(const Words& words, std::initializer_list<std::string_view> pattern);

}  // namespace corvane::basic
