#include "asm/line_coloring.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::assembler {

namespace {

// One character for each character of the line: k keyword, c comment, . neither.
std::string ColorsOf(std::string_view line) {
    std::string colors(line.size(), '.');
    for (const ColoredSpan& span : ColorLine(line)) {
        const char letter = span.color == TextColor::Keyword ? 'k' : 'c';
        colors.replace(static_cast<std::size_t>(span.start), static_cast<std::size_t>(span.length),
                       static_cast<std::size_t>(span.length), letter);
    }
    return colors;
}

TEST(LineColoring, ColorsOneKeywordAndTheComment) {
    struct Case {
        std::string_view line;
        std::string_view colors;
    };
    const Case cases[] = {
        {"MOVLW 0x05 ; load", "kkkkk......cccccc"},
        {"  call X goto", "..kkkk......."},
        {"  goto X call", ".........kkkk"},
        // NOP stands before MOVLW in the list, and under the comment.
        {"MOVLW 0x05 ; NOP here", "...........cccccccccc"},
        {"nop,", "...."},
        {",nop", "...."},
        {"LOOP\tnop\t", ".....kkk."},
        {"\tnop;", "....c"},
        {"movlw", "kkkkk"},
        {"X nop nop", "..kkk...."},
        {"COUNT equ 0x20", "......kkk....."},
        {"END ; dw", "....cccc"},
        {"NOPE", "...."},
        {"", ""},
        {";", "c"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ColorsOf(c.line), c.colors) << c.line;
    }
}

}  // namespace

}  // namespace corvane::assembler
