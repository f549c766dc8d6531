// Any text as a single line and back.
#pragma once

#include <string>
#include <string_view>

namespace corvane::common {

// Line ends become "\n" and "\r", a backslash two.
std::string OneLine(std::string_view text);
std::string FromOneLine(std::string_view line);

}  // namespace corvane::common
