#include "asm/assembler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "asm/test_symbols.h"
#include "common/number_text.h"

namespace corvane::assembler {
namespace {

Assembly AssembleText(std::string_view source) {
    return Assemble(source, TestSymbols(), kTestConfigurationWord);
}

// The word of a line, or its message.
std::string Outcome(const AsmLine& line) {
    return line.opcode ? common::Hex4(*line.opcode) : line.errorMessage;
}

constexpr const char* kInvalid = "Invalid argument of the instruction.";
constexpr const char* kTwo = "Two arguments expected.";

TEST(Assembler, ReadsOneLine) {
    struct Case {
        const char* source;
        const char* outcome;  // word or message, empty for a line with neither
        int errors;
    };
    const Case cases[] = {
        {"", "", 0},
        {"  ; only a comment", "", 0},
        {"label:", "", 0},
        {"NOP", "", 0},
        {"L: movlw 0x0f;c", "300F", 0},
        {"\tBSF\tSTATUS,\tRP0", "1683", 0},
        {" MOVF 0x20 , W", "0820", 0},
        {" MOVLW", "3000", 0},
        {" MOVF ,F", "0880", 0},
        {" MOVF 5,", "0805", 0},
        {" NOP ,", "0000", 0},
        {" CLRF 5,", "0185", 0},
        {" MOVLW 0X000000FF", "30FF", 0},
        {" MOVLW %101", "3005", 0},
        {" MOVLW 007", "3007", 0},
        {" MOVLW 0", "3000", 0},
        {" DW 16383", "3FFF", 0},
        {" MOVLW 256", kInvalid, 1},
        {" MOVLW 65536", kInvalid, 1},
        {" MOVLW -1", kInvalid, 1},
        {" MOVLW +5", kInvalid, 1},
        {" MOVLW 12H", kInvalid, 1},
        {" MOVLW 0X", kInvalid, 1},
        {" MOVLW 0X10000", kInvalid, 1},
        {" MOVLW %", kInvalid, 1},
        {" MOVLW %2", kInvalid, 1},
        {" MOVLW 1+1", kInvalid, 1},
        {" CLRW 1", kInvalid, 1},
        {" NOP 1,1", kInvalid, 2},
        {" ADDWF 0x200", kInvalid, 2},
        {" ADDWF 0x1FF", kTwo, 1},
        {" BCF 0,8", kInvalid, 1},
        {" MOVWFX 1", "Unrecognized instruction.", 1},
        {" MOVLW.LONG_WORD 1", "Unrecognized instruction.", 1},
        {"1 NOP", "Unrecognized instruction.", 1},
        {" COUNT", "Unrecognized instruction.", 1},
        {" COUNT EQU 0x20", "", 0},
        {" COUNT EQU", "Unrecognized instruction.", 1},
        {"X EQU STATUS", "Invalid argument of the EQU directive.", 1},
        {"X EQU 5,6", "Invalid argument of the EQU directive.", 1},
        {"STATUS EQU 3", "Duplicate label.", 1},
        {" ORG 0x10000", "Invalid argument of the ORG directive.", 1},
        {" ORG STATUS", "", 0},
        {" END", "", 0},
        {" END STATUS", kInvalid, 1},
    };
    for (const Case& c : cases) {
        const Assembly assembly = AssembleText(c.source);
        EXPECT_EQ(assembly.errorCount, c.errors) << c.source;
        EXPECT_EQ(assembly.lines.size(), *c.source == '\0' ? 0U : 1U) << c.source;
        for (const AsmLine& line : assembly.lines) {
            EXPECT_EQ(Outcome(line), c.outcome) << c.source;
        }
    }
}

TEST(Assembler, KeepsTheFieldsOfALine) {
    const Assembly assembly = AssembleText("  \n_Loop:  bsf\tStatus , rp0, 1 ; set\n");
    ASSERT_EQ(assembly.lines.size(), 2U);
    const AsmLine& line = assembly.lines[1];
    EXPECT_EQ(line.source, "_Loop:  bsf\tStatus , rp0, 1 ; set");
    EXPECT_EQ(line.label, "_LOOP");
    EXPECT_EQ(line.mnemonic, "BSF");
    EXPECT_EQ(line.operand1, "STATUS");
    EXPECT_EQ(line.operand2, "RP0, 1");
    EXPECT_TRUE(line.hasTwoOperands);
    EXPECT_TRUE(line.hasError);
    EXPECT_EQ(line.address, 0);
}

TEST(Assembler, NumbersLinesWithTheirLastFourDigits) {
    std::string source(10000, '\n');
    source += " FOO\n";
    const std::string listing = AssembleText(source).listing;
    EXPECT_NE(listing.find("\r\n9999    0000            \r\n0000    0000            \r\n"
                           "0001    0000             FOO\r\n0001 Error: Unrecognized"),
              std::string::npos);
}

TEST(Assembler, CutsAMegabyteInOneLine) {
    const Assembly assembly = AssembleText(" MOVLW 1;" + std::string(1 << 20, 'x') + "\n NOP");
    ASSERT_EQ(assembly.lines.size(), 2U);
    EXPECT_EQ(assembly.lines[0].source, " MOVLW 1;" + std::string(91, 'x'));
    EXPECT_EQ(assembly.errorCount, 0);
}

TEST(Assembler, FillsRecordsAndReachesTheLastAddressOfARecord) {
    // Eight words make one full record, a ninth a record of two bytes.
    std::string source;
    std::string fullRecord = ":10000000";
    for (int i = 0; i < 8; ++i) {
        source += " DW 0x1683\n";
        fullRecord += "8316";
    }
    fullRecord += "28\r\n";
    const std::string tail = ":02400E00F13F80\r\n:00000001FF\r\n";
    EXPECT_EQ(AssembleText(source).hex, fullRecord + tail);
    EXPECT_EQ(AssembleText(source + " DW 1\n").hex, fullRecord + ":020010000100ED\r\n" + tail);

    const Assembly last = AssembleText(" ORG 0x7FFF\n DW 0x3FFF");
    EXPECT_EQ(last.highestAddress, 0x7FFF);
    EXPECT_TRUE(last.hex.ends_with("\r\n:10FFF000" + std::string(28, '0') + "FF3FC3\r\n" + tail));
}

TEST(Assembler, WritesAnyConfigurationWord) {
    EXPECT_EQ(Assemble("", {}, 0x000A).hex, ":02400E000A00A6\r\n:00000001FF\r\n");
    EXPECT_EQ(Assemble("", {}, 0x000A).highestAddress, -1);
}

TEST(Assembler, ReportsItsProgress) {
    std::string seen;
    Assemble(" NOP\n NOP", {}, 0, [&](std::string_view status, int line) {
        seen += std::string(status) + std::to_string(line) + "\n";
    });
    EXPECT_EQ(seen,
              "Loading source file.0\n"
              "Performing pass 1.1\nPerforming pass 1.2\n"
              "Performing pass 2.1\nPerforming pass 2.2\n"
              "Performing pass 3.1\nPerforming pass 3.2\n"
              "Performing pass 4.1\nPerforming pass 4.2\n"
              "Writing LST file.0\nWriting HEX file.0\n");
}

TEST(Assembler, WarnsOnceOfAProgramThatDoesNotFit) {
    const Assembly fits = AssembleText(" ORG 0x3FF\n NOP\n ORG 0x400");
    EXPECT_TRUE(WarningsFor(fits, "PIC16F84", 1024).empty());

    const Assembly tooLong = AssembleText(" ORG 0x3FF\n NOP\n NOP\n NOP");
    const std::vector<Warning> warnings = WarningsFor(tooLong, "PIC16F84", 1024);
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings[0].lineNumber, 3);
    EXPECT_EQ(
        warnings[0].message,
        "The program does not fit the PIC16F84: address 0400h lies beyond its 1024 program words.");
}

// As many labels and lines as no person writes; each reference must find its own label.
TEST(Assembler, ResolvesManyLabels) {
    constexpr int kLabels = 20000;
    std::string source;
    for (int i = 0; i < kLabels; ++i) {
        const std::string next = std::to_string((i + 7) % kLabels);
        source += "; block\nL" + std::to_string(i) + ":\n    GOTO L" + next + "\n\n";
        source += i % 4000 == 3999 ? "    ORG 0\n" : "    ; end\n";
    }
    const Assembly assembly = AssembleText(source);
    EXPECT_EQ(assembly.errorCount, 0);
    ASSERT_EQ(assembly.lines.size(), 5U * kLabels);
    for (int i = 0; i < kLabels; ++i) {
        const int target = (i + 7) % kLabels % 4000;
        const AsmLine& line = assembly.lines[static_cast<std::size_t>(i) * 5 + 2];
        ASSERT_EQ(line.address, i % 4000);
        ASSERT_EQ(line.opcode, 0x2800 + target % 2048) << line.source;
    }
    EXPECT_EQ(std::count(assembly.listing.begin(), assembly.listing.end(), '\n'), 5 * kLabels + 6);
}

}  // namespace
}  // namespace corvane::assembler
