// Plain text handling. Only the ASCII letters have a case; every other byte passes unchanged.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::common {

// The text with its letters in one case.
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

// Without the blanks (only blanks) at both ends, or at the right end.
std::string_view Trim(std::string_view text);
std::string_view TrimRight(std::string_view text);

// Cuts the first line and its line end (CR LF, LF or CR) off a text that is not empty; returns the
// line without its end.
std::string_view TakeLine(std::string_view& text);

// The lines of a text, as TakeLine cuts them. A text that ends with a line end has no further,
// empty line behind it. The views point into the text.
std::vector<std::string_view> SplitLines(std::string_view text);

// The text with CR LF in place of each line end, or with LF.
std::string WithCrLf(std::string_view text);
std::string WithLf(std::string_view text);

// Characters of a UTF-8 text, and its first ones, at most as many as given here. A byte that is no
// UTF-8 counts as a character.
std::size_t CharacterCount(std::string_view text);
std::string_view FirstCharacters(std::string_view text, std::size_t count);

}  // namespace corvane::common
