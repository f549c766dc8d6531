#include "loader/intel_hex.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "case_file.h"
#include "common/number_text.h"
#include "common/text.h"

namespace corvane::loader {
namespace {

// "0001=2801 03FE=3FFF | 1023": words other than 0, and the extent; or "3: message".
std::string Outcome(std::string_view hex) {
    const auto program = ReadIntelHex(hex, 1024);
    if (!program) {
        return std::to_string(program.error.lineNumber) + ": " + program.error.message;
    }
    EXPECT_EQ(program->words.size(), 1024U);
    std::string text;
    for (std::size_t address = 0; address < program->words.size(); ++address) {
        if (const int word = program->words[address]; word != 0) {
            text += common::Hex4(static_cast<int>(address)) + "=" + common::Hex4(word) + " ";
        }
    }
    return text + "| " + std::to_string(program->loadedWords);
}

TEST(IntelHex, ProgramsAndFirstErrors) {
    ExpectCases("tests/loader/hex_files.txt", [](const std::string& text) {
        std::string withCr = common::WithLf(text);
        std::replace(withCr.begin(), withCr.end(), '\n', '\r');
        const std::string outcome = Outcome(text);
        EXPECT_EQ(Outcome(common::WithCrLf(text)), outcome);
        EXPECT_EQ(Outcome(withCr), outcome);
        return outcome;
    });
}

TEST(IntelHex, Messages) {
    const std::vector<std::pair<int, std::string>> cases = {
        {0, "0"},       {1, ".000"}, {100, ".097"},  {512, ".5"},    {1000, ".976"},
        {1023, ".999"}, {1024, "1"}, {1025, "1.00"}, {1500, "1.46"}, {8192, "8"}};
    for (const auto& [words, kilo] : cases) {
        EXPECT_EQ(LoadedMessage(words), "Operation completed.\r\nTotal " + std::to_string(words) +
                                            " (" + kilo + "K) program words loaded.");
    }
    EXPECT_EQ(HexErrorMessage({12, "Invalid data byte in the record."}),
              "Input program file in Intel Hex Format contains errors.\r\n"
              "Line number 12: Invalid data byte in the record.");
}

}  // namespace
}  // namespace corvane::loader
