#include <gtest/gtest.h>

#include "case_file.h"
#include "common/text.h"
#include "disasm/decoder.h"
#include "disasm/listing.h"

namespace corvane::disasm {
namespace {

TEST(Decoder, TextOfAWord) {
    ExpectCases("tests/disasm/words.txt", [](const std::string& word) {
        return DecodeInstruction(std::stoi(word, nullptr, 16));
    });
    EXPECT_EQ(DestinationName(2), "");
}

TEST(Listing, BothFormats) {
    const std::vector<std::uint16_t> words = {0x3005, 0x1683, 0x3B00};
    EXPECT_EQ(DisassembleProgram(words, ListingFormat::WithOpcodes) +
                  DisassembleProgram(words, ListingFormat::WithoutOpcodes),
              common::WithCrLf(ReadSourceFile("tests/disasm/listing.txt")));
}

TEST(Listing, OfTheLargestMemory) {
    const std::string listing =
        DisassembleProgram(std::vector<std::uint16_t>(8192, 0x0064), ListingFormat::WithOpcodes);
    EXPECT_TRUE(listing.ends_with("\r\n1FFF    0064    CLRWDT\r\n"));
}

}  // namespace
}  // namespace corvane::disasm
