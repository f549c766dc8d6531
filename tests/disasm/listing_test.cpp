#include "disasm/listing.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include "common/text.h"

namespace corvane::disasm {
namespace {

TEST(Listing, BothFormats) {
    const std::vector<std::uint16_t> words = {0x3005, 0x0086, 0x1683, 0x2802, 0x3B00, 0x0000};
    EXPECT_EQ(DisassembleProgram(words, ListingFormat::WithOpcodes),
              common::WithCrLf(
                  R"(-----------------------------------
PIC DISASSEMBLER LISTING
Address Opcode  Instruction
-----------------------------------
0000    3005    MOVLW 0x05
0001    0086    MOVWF 0x06
0002    1683    BSF STATUS,RP0
0003    2802    GOTO 0x002
0004    3B00    UNRECOGNIZED
0005    0000    NOP
)"));
    EXPECT_EQ(DisassembleProgram(words, ListingFormat::WithoutOpcodes),
              common::WithCrLf(
                  R"(;-----------------------------------
;PIC DISASSEMBLER LISTING
;Instruction
;-----------------------------------
MOVLW 0x05
MOVWF 0x06
BSF STATUS,RP0
GOTO 0x002
UNRECOGNIZED
NOP
)"));
}

TEST(Listing, ProgressNamesEachLineOfTheLargestMemory) {
    int lines = 0;
    const auto countLine = [&](std::string_view status, int line) {
        EXPECT_EQ(status, "Performing pass 1.");
        EXPECT_EQ(line, ++lines);
    };
    const std::string listing = DisassembleProgram(std::vector<std::uint16_t>(8192, 0x0064),
                                                   ListingFormat::WithOpcodes, countLine);
    EXPECT_EQ(lines, 8192);
    EXPECT_TRUE(listing.ends_with("\r\n1FFF    0064    CLRWDT\r\n"));
}

}  // namespace
}  // namespace corvane::disasm
