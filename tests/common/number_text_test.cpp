#include "common/number_text.h"

#include <gtest/gtest.h>

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
    struct Case {
        const char* text;
        std::optional<int> value;
    };
    const Case cases[] = {
        {"0X0000FF", 255},
        {"0X10000", {}},
        {"%101", 5},
        {"007", 7},
        {"65535", 65535},
        {"65536", {}},
        {"-1", {}},
        {"+5", {}},
        {"12H", {}},
        {"0X", {}},
        {"%", {}},
        {"", {}},
        {"0", 0},
        {"000", 0},
        {"0X0", 0},
        {"0XFG", {}},
        {"0xFF", {}},
        {"%102", {}},
        {"%00000000000000000000001", 1},
        {"%10000000000000000", {}},
        {"1E3", {}},
        {"1.0", {}},
        {"99999999999999999999", {}},
        {" 1", {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ParseNumber(c.text), c.value) << c.text;
    }
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
