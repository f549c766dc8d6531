// Sizes, limits and settings, which files of examples do not show well.
#include "basic/compiler.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "asm/assembler.h"
#include "basic/basic_fixture.h"
#include "case_file.h"
#include "disasm/listing.h"

namespace corvane::basic {
namespace {

std::string Repeated(int times, std::string_view text) {
    std::string result;
    for (int i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

std::string NumberedLines(int count, const std::string& before, const std::string& after) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += before;
        result += std::to_string(i);
        result += after;
        result += '\n';
    }
    return result;
}

Compilation CompileFor(std::string_view modelName, std::string_view text, float clock = 4.0F) {
    const models::Model& model = ModelNamed(modelName);
    auto compilation = CompileSource(text, model, DescriptionOf(model), clock);
    EXPECT_TRUE(compilation) << TextWithLine(compilation.error);
    return compilation ? std::move(*compilation) : Compilation();
}

TEST(Compile, LineEndsDoNotMatter) {
    const Compilation expected = CompileFor("PIC16F84", "dim a as byte\r\n\r\na=1\r\n");
    EXPECT_EQ(expected.assembler, CompileFor("PIC16F84", "dim a as byte\n\na=1").assembler);
    EXPECT_EQ(expected.assembler, CompileFor("PIC16F84", "dim a as byte\r\ra=1\r").assembler);
}

TEST(Compile, NoTextAndNoRam) {
    EXPECT_TRUE(
        CompileFor("PIC16F84", "")
            .assembler.ends_with(
                "; 1: \r\n; End\r\nL0001:  GOTO L0001\r\n; End of listing\r\n        END\r\n"));
    EXPECT_TRUE(Compile("", ModelNamed("PIC16F84"), {}, 4.0F));
    EXPECT_FALSE(Compile("\r\n", ModelNamed("PIC16F84"), {}, 4.0F));
}

// A PIC16F84 has 68 bytes of RAM, and the generated code needs ten of them.
TEST(Compile, RamIsUsedToTheLastByte) {
    const std::string full =
        NumberedLines(16, "dim f", " as bit") + NumberedLines(28, "dim w", " as word");
    EXPECT_EQ("", CompileError(full));
    EXPECT_EQ("Error in line 45: Not enough RAM memory available for this variable.",
              CompileError(full + "dim f16 as bit\n"));
    EXPECT_EQ("Error in line 45: Not enough RAM memory available for this variable.",
              CompileError(full + "here: dim w28 as word\n"));
}

TEST(Compile, TenThousandOpenBlocks) {
    constexpr int kDepth = 10000;
    const std::string openings = Repeated(kDepth, "while porta.0\n") +
                                 Repeated(kDepth, "if porta.1 then\n") +
                                 Repeated(kDepth, "for portb = 1 to 2\n");
    EXPECT_EQ("Error in line 30001: Wend is missing.", CompileError(openings));
    const Compilation compilation =
        CompileFor("PIC16F84", openings + Repeated(kDepth, "next portb\n") +
                                   Repeated(kDepth, "else\nend if\n") + Repeated(kDepth, "wend\n"));
    EXPECT_EQ(2U, compilation.warnings.size()) << "too many words, too many labels";
}

TEST(Compile, LabelsEndAt9999) {
    const std::string most = NumberedLines(9998, "l", ":");
    const Compilation compilation = CompileFor("PIC16F84", most + "goto l9997\n");
    EXPECT_NE(std::string::npos, compilation.assembler.find("        GOTO L9998\r\n; End\r\n"
                                                            "L9999:  GOTO L9999\r\n"));
    EXPECT_EQ(1U, compilation.warnings.size());
    const std::vector<common::Diagnostic> warnings = CompileFor("PIC16F84", most + "l:\n").warnings;
    ASSERT_EQ(2U, warnings.size());
    EXPECT_EQ(9999, warnings[1].line);
    EXPECT_EQ("The program needs more than 9999 labels from this line on; they repeat.",
              warnings[1].text);
}

// "portb = 1" takes two words, the end one.
TEST(Compile, WarnsOfTheLineBeyond2048Words) {
    const std::string fits = Repeated(1023, "portb=1\n") + "portb=0\n";
    EXPECT_TRUE(CompileFor("PIC16F877", fits).warnings.empty());
    const std::vector<common::Diagnostic> warnings = CompileFor("PIC16F877", fits + fits).warnings;
    ASSERT_EQ(1U, warnings.size());
    EXPECT_EQ(1025, warnings[0].line);
    EXPECT_EQ(
        "The program exceeds 2048 words from this line on; jumps and calls reach only the first "
        "2048.",
        warnings[0].text);
}

TEST(Compile, LongLines) {
    const std::string megabyte(1 << 20, 'x');
    EXPECT_EQ("", CompileError("portb = 1 '" + megabyte));
    EXPECT_EQ("", CompileError("dim " + megabyte + " as byte"));
    EXPECT_EQ("Error in line 1: Syntax error.", CompileError(megabyte));
    EXPECT_EQ("Error in line 1: Line too long.", CompileError(Repeated(1 << 18, "+ ")));
    EXPECT_EQ("Error in line 1: Incorrect line label name.",
              CompileError(std::string("\0:\xFF'\"", 5)));
}

// The loop count of a millisecond is 5 x MHz - 2, rounded to even.
TEST(Compile, WaitsFollowTheClock) {
    ExpectCases("tests/basic/waits.txt", [](const std::string& megahertz) {
        const std::string text = CompileFor("PIC16F84", "waitms 1", std::stof(megahertz)).assembler;
        return text.substr(text.find("        MOVWF R1H\r\n") - 6, 4);
    });
}

// Of all that tell their progress.
TEST(Progress, NamesThePassAndTheLine) {
    std::string reports;
    const auto report = [&reports](std::string_view status, int line) {
        reports.append(status).append(std::to_string(line)).append(" ");
    };
    const models::Model& model = ModelNamed("PIC16F84");
    EXPECT_TRUE(Compile("\r\nPORTB = 0\r\n", model, DescriptionOf(model), 4.0F, report));
    assembler::Assemble(" NOP\n NOP", {}, 0, report);
    disasm::DisassembleProgram(std::vector<std::uint16_t>(2, 0x0064),
                               disasm::ListingFormat::WithOpcodes, report);
    EXPECT_EQ(reports,
              "Performing pass 1.1 Performing pass 1.2 Performing pass 2.1 Performing pass 2.2 "
              "Loading source file.0 Performing pass 1.1 Performing pass 1.2 "
              "Performing pass 2.1 Performing pass 2.2 Performing pass 3.1 Performing pass 3.2 "
              "Performing pass 4.1 Performing pass 4.2 Writing LST file.0 Writing HEX file.0 "
              "Performing pass 1.1 Performing pass 1.2 ");
}

}  // namespace
}  // namespace corvane::basic
