#include "models/description.h"

#include <gtest/gtest.h>

#include "case_file.h"

namespace corvane::models {
namespace {

TEST(Description, ARegisterLineFillsMapMaskAndLists) {
    const auto result = ReadModelDescription(
        "before any section\n"
        "***** Section 1 *****\n"
        "003,003,STATUS,18,FF\r\n"
        "; 004,004,FSR,00,FF\n"
        "083\t003\tXXXX\t00\tFF\r"
        "00A,00A\tPCLATH,00,1F\n"
        "00C,00C,RAM,00,FF\n"
        "1FF,00C,XXXX,77,00");
    ASSERT_TRUE(result);
    EXPECT_EQ(result->addressMap[0x083], 0x003);
    EXPECT_EQ(result->addressMap[0x1FF], 0x00C);
    EXPECT_EQ(result->addressMap[0x004], 0x004);  // not listed: its own register
    EXPECT_EQ(result->writeMask[0x004], 0x00);
    EXPECT_EQ(result->writeMask[0x083], 0xFF);
    EXPECT_EQ(result->writeMask[0x00A], 0x1F);
    ASSERT_EQ(result->gprList.size(), 1U);
    EXPECT_EQ(result->gprList[0].label, "00Ch");
    EXPECT_EQ(result->gprList[0].address, 0x00C);
    ASSERT_EQ(result->sfrList.size(), 3U);
    EXPECT_EQ(result->sfrList[0].label, "003h  STATUS");
    EXPECT_EQ(result->sfrList[0].resetValue, 0x18);
    EXPECT_EQ(result->sfrList[1].label, "00Ah  PCLATH");
    EXPECT_EQ(result->sfrList[2].label, "TMR0 Prescaler");
    EXPECT_EQ(result->sfrList[2].address, kPrescalerAddress);
}

TEST(Description, ACorruptedLineIsNamedByItsNumber) {
    ExpectCases("tests/models/register_lines.txt", [](const std::string& line) {
        const auto result = ReadModelDescription("***** Section 1 *****\r\n; comment\r\n" + line +
                                                 "\r\n00D,00D,RAM,00,FF\r\n");
        return result ? "good" : std::to_string(result.error);
    });
}

TEST(Description, SectionsComeInAnyOrderAndRepeat) {
    const auto result = ReadModelDescription(
        "***** Section 3 *****\n"
        "PORTA EQU 5\n"
        "***** Section 2 *****\n"
        "\n"
        "; comment\n"
        "W\tequ 0 ; kept as it is\n"
        "***** Section 1 ***** \n"
        "***** Section 1 *****\n"
        "001,001,TMR0,00,FF\n"
        "***** Section 2 *****\n"
        "F EQU 1\n"
        "***** Section 1 *****\n"
        "000,000,INDF,00,00\n");
    ASSERT_TRUE(result);
    ASSERT_EQ(result->asmSymbolLines.size(), 4U);
    EXPECT_EQ(result->asmSymbolLines[0].text, "");
    EXPECT_EQ(result->asmSymbolLines[1].text, "W\tequ 0 ; kept as it is");
    EXPECT_EQ(result->asmSymbolLines[1].lineNumber, 6);
    EXPECT_EQ(result->asmSymbolLines[2].text, "***** Section 1 ***** ");
    EXPECT_EQ(result->asmSymbolLines[3].lineNumber, 11);
    ASSERT_EQ(result->basicSymbolLines.size(), 1U);
    EXPECT_EQ(result->basicSymbolLines[0].text, "PORTA EQU 5");
    ASSERT_EQ(result->sfrList.size(), 3U);
    EXPECT_EQ(result->sfrList[0].label, "001h  TMR0");  // in file order
    EXPECT_EQ(result->sfrList[1].label, "000h  INDF");
}

}  // namespace
}  // namespace corvane::models
