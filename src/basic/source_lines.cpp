#include "basic/source_lines.h"

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

}  // namespace

std::string PrepareLine(std::string_view line) {
    std::string result = WithSingleBlanks(line);
    if (result.starts_with('\'')) {
        return "";
    }
    result.resize(std::min(result.size(), result.find(" '")));
    return result;
}

std::vector<SourceLine> PrepareSource(std::string_view text) {
    std::vector<SourceLine> lines;
    for (const std::string_view line : common::SplitLines(text)) {
        lines.push_back({PrepareLine(line), "", ""});
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

bool Matches(const Words& words, std::initializer_list<std::string_view> pattern) {
    const auto matchesWord = [](std::string_view expected, std::string_view word) {
        return expected == kAnyWord || expected == word;
    };
    return words.count == pattern.size() &&
           std::equal(pattern.begin(), pattern.end(), words.word.begin(), matchesWord);
}

}  // namespace corvane::basic
