#include "common/text.h"

#include <algorithm>
#include <cstddef>

namespace corvane::common {

namespace {

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool ContinuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// Of a text that is not empty, in bytes. A byte that begins no whole UTF-8 sequence is a character.
std::size_t FirstCharacterSize(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t size = first >= 0xF0U ? 4 : first >= 0xE0U ? 3 : first >= 0xC2U ? 2 : 1;
    const std::string_view rest = text.substr(1, size - 1);
    return rest.size() == size - 1 && std::ranges::all_of(rest, ContinuesCharacter) ? size : 1;
}

std::string WithLineEnds(std::string_view text, std::string_view lineEnd) {
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    const auto isLineEnd = [](char c) { return c == '\r' || c == '\n'; };
    const char* position = text.data();
    const char* const end = position + text.size();
    while (true) {
        const char* const lineStart = position;
        position = std::find_if(position, end, isLineEnd);
        result.append(lineStart, position);
        if (position == end) {
            return result;
        }
        result += lineEnd;
        const bool isCrLf = *position == '\r' && position + 1 != end && position[1] == '\n';
        position += isCrLf ? 2 : 1;
    }
}

}  // namespace

std::string ToUpper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), UpperCase);
    return result;
}

std::string ToLower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), LowerCase);
    return result;
}

std::string_view TrimRight(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view Trim(std::string_view text) {
    text = TrimRight(text);
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view TakeLine(std::string_view& text) {
    const auto isLineEnd = [](char c) { return c == '\r' || c == '\n'; };
    const auto length =
        static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isLineEnd) - text.begin());
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(length);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
    return line;
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        lines.push_back(TakeLine(text));
    }
    return lines;
}

std::string WithCrLf(std::string_view text) {
    return WithLineEnds(text, "\r\n");
}
std::string WithLf(std::string_view text) {
    return WithLineEnds(text, "\n");
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t characters = 0;
    for (; !text.empty(); ++characters) {
        text.remove_prefix(FirstCharacterSize(text));
    }
    return characters;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    std::size_t size = 0;
    for (; count > 0 && size < text.size(); --count) {
        size += FirstCharacterSize(text.substr(size));
    }
    return text.substr(0, size);
}

}  // namespace corvane::common
