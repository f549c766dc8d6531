#include "models/symbol_lines.h"

#include <gtest/gtest.h>

#include "case_file.h"

namespace corvane::models {
namespace {

TEST(SymbolLines, AreSymbolsOrBadOrIgnored) {
    ExpectCases("tests/models/symbol_lines.txt", [](const std::string& line) {
        const PredefinedSymbols read = ReadSymbolLines({{line, 7}});
        if (!read.badLines.empty()) {
            EXPECT_EQ(read.badLines, std::vector{7});
            EXPECT_TRUE(read.symbols.empty());
            return std::string("bad");
        }
        return read.symbols.empty()
                   ? std::string()
                   : read.symbols[0].name + " " + std::to_string(read.symbols[0].value);
    });
    EXPECT_EQ(BadSymbolLineMessage("PIC16F84"),
              "Invalid argument of the EQU directive.\r\nFile 'pic16f84.cfg' is corrupted.");
}

}  // namespace
}  // namespace corvane::models
