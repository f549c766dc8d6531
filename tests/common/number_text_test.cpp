#include "common/number_text.h"

#include <gtest/gtest.h>

#include "case_file.h"

namespace corvane::common {
namespace {

TEST(NumberText, HexadecimalTextsHaveAFixedWidth) {
    EXPECT_EQ(Hex2(5), "05");
    EXPECT_EQ(Hex2(0x1AB), "AB");
    EXPECT_EQ(Hex2(-1), "FF");
    EXPECT_EQ(Hex3(5), "005");
    EXPECT_EQ(Hex4(0x12345), "2345");
    EXPECT_EQ(PrefixedHex2(0xC), "0x0C");
    EXPECT_EQ(PrefixedHex3(0x1A), "0x01A");
    EXPECT_EQ(HexText(0), "0");
    EXPECT_EQ(HexText(0xA0), "A0");
    EXPECT_EQ(HexText(-2), "FFFFFFFE");
    EXPECT_EQ(Binary14(0x2805), "10100000000101");
    EXPECT_EQ(Binary13(5), "0000000000101");
}

TEST(NumberText, HexadecimalDigitsAreUpperCaseAndComplete) {
    EXPECT_EQ(ParseHex2("7F"), 0x7F);
    EXPECT_EQ(ParseHex4("FFFF"), 0xFFFF);
    EXPECT_EQ(ParseHex3("1FF"), 0x1FF);
    for (const char* text : {"", "F", "0FF", "ff", "0g", "-1", " 1"}) {
        EXPECT_EQ(ParseHex2(text), -1) << text;
    }
    EXPECT_EQ(ParseBinary16("1000000000000001"), 0x8001);
    EXPECT_EQ(ParseBinary16("100000000000001"), -1);
    EXPECT_EQ(ParseBinary16("1000000000000002"), -1);
}

TEST(NumberText, SourceNumbers) {
    ExpectCases("tests/common/numbers.txt", [](const std::string& text) {
        const std::optional<int> value = ParseNumber(text);
        return value ? std::to_string(*value) : "";
    });
}

TEST(NumberText, RecordChecksumIsTheComplementOfTheSum) {
    EXPECT_EQ(RecordChecksum("02400E00F13F"), "80");
    EXPECT_EQ(RecordChecksum("00000001"), "FF");
    EXPECT_EQ(RecordChecksum(""), "00");
    EXPECT_EQ(RecordChecksum("80807"), "00");
    EXPECT_EQ(RecordChecksum("ff"), "01");  // no digits: counts as -1
}

}  // namespace
}  // namespace corvane::common
