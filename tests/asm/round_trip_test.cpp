// What the disassembler writes, the assembler reads.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "asm/assembler.h"
#include "asm/test_symbols.h"
#include "disasm/decoder.h"
#include "isa/instruction_set.h"

namespace corvane::assembler {
namespace {

// The bits that the data sheet marks "x" in the instruction's encoding.
int DontCareBits(int word) {
    switch (isa::Classify(word)) {
        case isa::Operation::Nop:
            return 0x0060;
        case isa::Operation::Clrw:
            return 0x007F;
        case isa::Operation::Movlw:
        case isa::Operation::Retlw:
            return 0x0300;
        case isa::Operation::Sublw:
        case isa::Operation::Addlw:
            return 0x0100;
        default:
            return 0;
    }
}

TEST(RoundTrip, EveryInstructionWordSurvivesItsText) {
    std::string source;
    std::vector<int> words;
    for (int word = 0; word < isa::kWordCount; ++word) {
        if (isa::Classify(word) != isa::Operation::Unrecognized) {
            source += "    " + disasm::DecodeInstruction(word) + "\r\n";
            words.push_back(word);
        }
    }
    const Assembly assembly = Assemble(source, TestSymbols(), kTestConfigurationWord);
    EXPECT_EQ(assembly.errorCount, 0);
    ASSERT_EQ(assembly.lines.size(), words.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
        const AsmLine& line = assembly.lines[i];
        ASSERT_TRUE(line.opcode) << line.source << ": " << line.errorMessage;
        ASSERT_EQ(*line.opcode, words[i] & ~DontCareBits(words[i])) << line.source;
        ASSERT_EQ("    " + disasm::DecodeInstruction(*line.opcode), line.source);
    }
}

}  // namespace
}  // namespace corvane::assembler
