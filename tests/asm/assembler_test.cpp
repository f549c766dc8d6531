#include "asm/assembler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "asm/line_coloring.h"
#include "asm/listing.h"
#include "asm/test_symbols.h"
#include "case_file.h"
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

TEST(Assembler, ReadsOneLine) {
    ExpectCases("tests/asm/lines.txt", [](const std::string& line) {
        const Assembly assembly = AssembleText(line);
        EXPECT_EQ(assembly.lines.size(), line.empty() ? 0U : 1U);
        return (line.empty() ? "" : Outcome(assembly.lines[0])) + " " +
               std::to_string(assembly.errorCount);
    });
}

TEST(LineColoring, ColorsOneKeywordAndTheComment) {
    ExpectCases("tests/asm/colors.txt", [](const std::string& line) {
        std::string colors(line.size(), '.');
        for (const common::ColoredSpan& span : ColorLine(line)) {
            const auto length = static_cast<std::size_t>(span.length);
            colors.replace(static_cast<std::size_t>(span.start), length, length,
                           span.color == common::TextColor::Keyword ? 'k' : 'c');
        }
        return colors;
    });
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

TEST(Assembler, TellsWhereItsErrorsStandInTheListing) {
    const std::vector<ListedError> errors = ErrorsInListing(AssembleText(" foo\n nop\n bar\n"));
    ASSERT_EQ(errors.size(), 2U);
    EXPECT_EQ(errors[0].listingLine, 6);
    EXPECT_EQ(errors[0].sourceLine, 1);
    EXPECT_EQ(errors[1].listingLine, 9);
    EXPECT_EQ(errors[1].sourceLine, 3);
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
    EXPECT_EQ(last.words.size(), 0x8000U);
    EXPECT_EQ(Assemble("", {}, 0x000A).hex, ":02400E000A00A6\r\n:00000001FF\r\n");
    EXPECT_TRUE(last.hex.ends_with("\r\n:10FFF000" + std::string(28, '0') + "FF3FC3\r\n" + tail));
}

TEST(Assembler, WarnsOnceOfAProgramThatDoesNotFit) {
    const Assembly fits = AssembleText(" ORG 0x3FF\n NOP\n ORG 0x400");
    EXPECT_TRUE(WarningsFor(fits, "PIC16F84", 1024).empty());

    const Assembly tooLong = AssembleText(" ORG 0x3FF\n NOP\n NOP\n NOP");
    const std::vector<common::Diagnostic> warnings = WarningsFor(tooLong, "PIC16F84", 1024);
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings[0].line, 3);
    EXPECT_EQ(
        warnings[0].text,
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
