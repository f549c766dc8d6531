// Which parts of a source line an editor sets off by colour.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace corvane::assembler {

enum class TextColor : std::uint8_t { Keyword, Comment };

struct ColoredSpan {
    int start;  // bytes from the line's beginning
    int length;
    TextColor color;
};

// The spans that are not of the normal colour; later ones cover earlier ones. At most one keyword
// of a line is coloured: of the instructions and directives that stand between blanks or tabs, the
// one that comes first in the keyword list, which is ordered by kind (byte, bit, literal and
// control instructions, directives) and not by the place in the line.
std::vector<ColoredSpan> ColorLine(std::string_view line);

}  // namespace corvane::assembler
