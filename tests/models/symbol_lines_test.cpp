#include "models/symbol_lines.h"

#include <gtest/gtest.h>

namespace corvane::models {
namespace {

TEST(SymbolLines, AGoodLineIsASymbol) {
    struct Case {
        const char* text;
        const char* name;
        int value;
    };
    const Case cases[] = {
        {"STATUS EQU 3", "STATUS", 3},
        {"  status\tequ 3 ; comment", "STATUS", 3},
        {"_x  EQU\t\t0x01fF;comment", "_X", 0x1FF},
        {"RP0 EQU %101", "RP0", 5},
        {"A EQU 65535", "A", 65535},
        {"A_NAME_OF_MORE_THAN_THIRTY_TWO_CHARACTERS EQU 007",
         "A_NAME_OF_MORE_THAN_THIRTY_TWO_CHARACTERS", 7},
    };
    for (const Case& c : cases) {
        const PredefinedSymbols result = ReadSymbolLines({{c.text, 1}});
        EXPECT_TRUE(result.badLines.empty()) << c.text;
        ASSERT_EQ(result.symbols.size(), 1U) << c.text;
        EXPECT_EQ(result.symbols[0].name, c.name) << c.text;
        EXPECT_EQ(result.symbols[0].value, c.value) << c.text;
    }
}

TEST(SymbolLines, LinesWithoutEquAreIgnored) {
    const PredefinedSymbols result = ReadSymbolLines({{"", 1},
                                                      {" \t ", 2},
                                                      {"EQU 3", 3},
                                                      {"X EQU", 4},
                                                      {"X=3", 5},
                                                      {"; X EQU 3", 6},
                                                      {"X ; EQU 3", 7},
                                                      {"XEQU 3", 8}});
    EXPECT_TRUE(result.symbols.empty());
    EXPECT_TRUE(result.badLines.empty());
}

TEST(SymbolLines, ABadLineIsSkippedAndNamedByItsNumber) {
    const PredefinedSymbols result = ReadSymbolLines({{"3ABC EQU 1", 10},
                                                      {"GOOD EQU 1", 11},
                                                      {"X EQU 65536", 12},
                                                      {"X EQU -1", 13},
                                                      {"X EQU 12H", 14},
                                                      {"X EQU 0X", 15},
                                                      {"X EQU Y", 16},
                                                      {"X EQU 1 EQU 2", 17},
                                                      {"\xC4 EQU 1", 18}});
    ASSERT_EQ(result.symbols.size(), 1U);
    EXPECT_EQ(result.symbols[0].name, "GOOD");
    EXPECT_EQ(result.badLines, (std::vector<int>{10, 12, 13, 14, 15, 16, 17, 18}));
    EXPECT_EQ(BadSymbolLineMessage("PIC16F84"),
              "Invalid argument of the EQU directive.\r\nFile 'pic16f84.cfg' is corrupted.");
}

}  // namespace
}  // namespace corvane::models
