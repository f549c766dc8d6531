// The parts of a source line that an editor sets off by colour.
#pragma once

#include <cstdint>

namespace corvane::common {

enum class TextColor : std::uint8_t { Keyword, AssemblerComment, BasicComment, Quoted };

struct ColoredSpan {
    int start;  // bytes from the line's beginning
    int length;
    TextColor color;
};

}  // namespace corvane::common
