#include "basic/words.h"

#include <algorithm>

#include "common/text.h"

namespace corvane::basic {

namespace {

std::string WithSingleBlanks(std::string_view line) {
    std::string result;
    result.reserve(line.size());
    for (const char c : line) {
        const char shown = c == '\t' ? ' ' : c;
        if (shown != ' ' || (!result.empty() && result.back() != ' ')) {
            result += shown;
        }
    }
    if (result.ends_with(' ')) {
        result.pop_back();
    }
    return result;
}

std::string PrepareLine(std::string_view line) {
    std::string result = WithSingleBlanks(line);
    if (result.starts_with('\'')) {
        return "";
    }
    result.resize(std::min(result.size(), result.find(" '")));
    return result;
}

}  // namespace

std::vector<std::string> PrepareLines(std::string_view text) {
    const std::vector<std::string_view> parts = common::SplitLines(text);
    std::vector<std::string> lines;
    lines.reserve(parts.size());
    for (const std::string_view line : parts) {
        lines.push_back(PrepareLine(line));
    }
    return lines;
}

std::optional<Words> SplitWords(std::string_view line) {
    Words words;
    while (!line.empty()) {
        if (words.count == kMaxWords) {
            return std::nullopt;
        }
        const std::size_t blank = std::min(line.find(' '), line.size());
        words.word[words.count++] = line.substr(0, blank);
        line.remove_prefix(std::min(blank + 1, line.size()));
    }
    return words;
}

Words WithoutFirst(const Words& words) {
    Words rest;
    std::copy(words.word.begin() + 1, words.word.end(), rest.word.begin());
    rest.count = words.count - 1;
    return rest;
}

bool Matches(const Words& words, std::initializer_list<std::string_view> pattern) {
    const auto matchesWord = [](std::string_view expected, std::string_view word) {
        return expected == kAnyWord || expected == word;
    };
    return words.count == pattern.size() &&
           std::equal(pattern.begin(), pattern.end(), words.word.begin(), matchesWord);
}

}  // namespace corvane::basic
