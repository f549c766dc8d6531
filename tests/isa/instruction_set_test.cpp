#include "isa/instruction_set.h"

#include <gtest/gtest.h>

namespace corvane::isa {
namespace {

bool Covers(const Instruction& row, int word) {
    return word >= row.firstWord && word <= row.lastWord &&
           (word - row.firstWord) % row.stride == 0;
}

TEST(InstructionSet, EveryWordMatchesExactlyOneRowOrNone) {
    int recognized = 0;
    for (int word = 0; word < kWordCount; ++word) {
        int rows = 0;
        for (const Instruction& row : kInstructions) {
            if (Covers(row, word)) {
                ++rows;
                EXPECT_EQ(Classify(word), row.operation) << word;
            }
        }
        EXPECT_LE(rows, 1) << word;
        if (rows == 0) {
            EXPECT_EQ(Classify(word), Operation::Unrecognized) << word;
        }
        recognized += rows;
    }
    // 3B00-3BFF and 112 of the words below 0080 are the words that mean nothing.
    EXPECT_EQ(recognized, kWordCount - 0x100 - (0x80 - 8));
}

TEST(InstructionSet, WordsOutside14BitsAreNotInstructions) {
    EXPECT_EQ(Classify(-1), Operation::Unrecognized);
    EXPECT_EQ(Classify(0x4000), Operation::Unrecognized);
}

TEST(InstructionSet, RowsStandInTheOrderOfTheirOperationsAndAreFoundByMnemonic) {
    for (const Instruction& row : kInstructions) {
        EXPECT_EQ(&InstructionOf(row.operation), &row);
        EXPECT_EQ(FindMnemonic(row.mnemonic), &row);
    }
    EXPECT_EQ(FindMnemonic("nop"), nullptr);
    EXPECT_EQ(FindMnemonic(""), nullptr);
}

}  // namespace
}  // namespace corvane::isa
