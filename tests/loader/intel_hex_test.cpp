#include "loader/intel_hex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "common/number_text.h"
#include "common/text.h"

namespace corvane::loader {
namespace {

using namespace std::string_literals;

constexpr int kProgramWords = 1024;

// "0001=2801 03FE=3FFF", and the extent behind them: "| 1023".
std::string TextOf(const Program& program) {
    std::string text;
    for (std::size_t address = 0; address < program.words.size(); ++address) {
        const int word = program.words[address];
        if (word != 0) {
            text += common::Hex4(static_cast<int>(address)) + "=" + common::Hex4(word) + " ";
        }
    }
    return text + "| " + std::to_string(program.loadedWords);
}

TEST(IntelHex, Programs) {
    struct Case {
        std::string text;
        std::string program;
    };
    const std::vector<Case> cases = {
        {"", "| 0"},
        {":00000001FF\n", "| 0"},
        {":02000000FF3FC0", "0000=3FFF | 1"},  // neither end record nor last line end
        {":0800000001300230033404302A\n", "0000=3001 0001=3002 0002=3403 0003=3004 | 4"},
        // The extent is that of the highest record, not of the last.
        {":0207FC00FF3FBD\n:020002000128D3\n", "0001=2801 03FE=3FFF | 1023"},
        {":02000000FF3FC0\n\n:020000000A00F4\n", "0000=000A | 1"},
        {":0207FE001230B7\n", "03FF=3012 | 1024"},
        // A record that is not wholly within memory is dropped, its words unseen: across the end,
        // configuration word, ID locations and EEPROM, all but segment 0.
        {":0407FE000130023094\n:020002000128D3\n", "0001=2801 | 2"},
        {":02400E00F13F80\n:04420000AA00BB0055\n:0242000000FFBD\n", "| 0"},
        {":020000040001F9\n:02000000FF3FC0\n:020000040000FA\n:020002000128D3\n", "0001=2801 | 2"},
        {":02000004FFFFFC\n:02FFFE00FF3FC3\n", "| 0"},
        {":ff0001040000FC\n:02000000FF3FC0\n", "0000=3FFF | 1"},  // only its data is looked at
        {":03000100FC\n", "| 0"},  // no data: count and address are not tested
        {":00000001FF\nrubbish\n", "| 0"},
        {":030001010001FA\nrubbish", "| 0"},  // nor are the end record's
        {":FE000000" + std::string(504, '0') + "FF3FC4", "007E=3FFF | 127"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        std::string withCr = c.text;
        std::replace(withCr.begin(), withCr.end(), '\n', '\r');
        for (const std::string& text : {c.text, common::WithCrLf(c.text), withCr}) {
            const auto program = ReadIntelHex(text, kProgramWords);
            ASSERT_TRUE(program) << program.error.lineNumber << ": " << program.error.message;
            EXPECT_EQ(program->words.size(), kProgramWords);
            EXPECT_EQ(TextOf(*program), c.program);
        }
    }
}

TEST(IntelHex, FirstErrorOfAFile) {
    struct Case {
        std::string message;
        std::vector<std::string> texts;  // the last line of each is the faulty one
    };
    const std::vector<Case> cases = {
        {"The record does not begin with ':' simbol.",
         {"00000001FF", " :00000001FF", "\0:00000001FF"s, ":02000000FF3FC0\n\nx"}},
        {"The record is too short.", {":", ":0000001FF", ":02000000FF3FC0\r\n\r\n:"}},
        // Lower-case pairs count -1, and a wrong type is not looked at yet.
        {"Invalid 'checksum' field in the record.",
         {":02000000FF3FC1", ":00000001ff", ":00000001FF ", ":020000000a00F4", ":020000020000FF",
          ":02000000\xE9\xE9\0\0D2"s}},
        {"Invalid 'record type' field in the record.",
         {":02000002FC", ":02000003FB", ":020000ff0030CF"}},
        {"Invalid '04 type' record.",
         {":02000004FA", ":02000004000FA", ":02000004000000FA", ":0200000400FGFB",
          ":0200000400ffFB"}},
        {"Invalid 'number of bytes' field in the record.", {":0G0000000030D1", ":ffffff000030D3"}},
        {"Invalid 'address' field in the record.", {":02ffff000030D0", ":03000G000030CE"}},
        {"Field 'number of bytes' in the record must contain an even value.",
         {":0300010001020304F2", ":FF000000" + std::string(510, '0') + "01"}},
        {"Field 'address' in the record must contain an even value.",
         {":020001000030CD", ":040001000030CB"}},
        {"The record does not contain the specified number of bytes.",
         {":040000000030CC", ":0200000000300CE", ":000000000030D0", ":04000000FC\n:040000000FC"}},
        {"Invalid data byte in the record.",
         {":020000000040BE", ":02000000FFFF00", ":02000000ffff00", ":02000000300GCF",
          ":02000000\0\xFF\x80 00"s}},
    };
    for (const Case& c : cases) {
        for (const std::string& text : c.texts) {
            SCOPED_TRACE(text);
            const auto program = ReadIntelHex(text, kProgramWords);
            ASSERT_FALSE(program);
            EXPECT_EQ(program.error.message, c.message);
            EXPECT_EQ(program.error.lineNumber, common::SplitLines(text).size());
        }
    }
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
