#include "app/breakpoint_list.h"
#include "app/breakpoint_listing.h"
#include "case_file.h"
#include "common/text.h"
#include "fakes.h"

namespace corvane::app {
namespace {

// A disassembly of this many words.
std::string Disassembly(int words) {
    std::string text = "---\r\nPIC DISASSEMBLER LISTING\r\nAddress Opcode  Instruction\r\n---\r\n";
    for (int address = 0; address < words; ++address) {
        text += common::Hex4(address) + "    0000    NOP\r\n";
    }
    return text;
}

TEST(BreakpointListing, LinesOfAnAssemblerListing) {
    ExpectCases("tests/app/listing_lines.txt", [](const std::string& line) {
        const Listing listing = ListingOfFile(line + "\r\n");
        EXPECT_EQ(common::CharacterCount(listing.at(0).text), kListingColumns);
        const std::optional<int> address = listing[0].address;
        return (address ? common::Hex4(*address) : "-") + " " +
               std::string(common::TrimRight(listing[0].text));
    });
    EXPECT_TRUE(ListingOfFile("").empty());
}

TEST(BreakpointListing, ScrollingAndHolding) {
    EXPECT_EQ(LargestScrollValue({}), 1);
    const Listing listing = ListingOfDisassembly(Disassembly(100));
    struct Case {
        int scrollValue;
        int pc;
        std::optional<int> moved;
    };
    const Case cases[] = {
        {1, 0, {}},   {1, 15, {}},  {1, 16, 21},    {10, 5, {}}, {10, 4, 9},
        {50, 99, 85}, {85, 99, {}}, {84, 98, {}},   {1, 84, 85}, {1, 80, 85},
        {1, 79, 84},  {1, 100, {}}, {85, 8191, {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ScrollValueFor(listing, c.scrollValue, c.pc), c.moved)
            << c.scrollValue << " " << c.pc;
    }
    EXPECT_EQ(ScrollValueFor({}, 1, 0), std::nullopt);
}

TEST(BreakpointListing, RowsShowMarkers) {
    BreakpointList breakpoints;
    breakpoints.Toggle(2);
    const auto marks = [](const ListingRow& row) {
        return std::string(row.hasBreakpoint ? "b" : "") + (row.hasPc ? "p" : "");
    };
    const auto marksOf = [&](const Listing& listing, int scrollValue) {
        Texts texts;
        for (const ListingRow& row : VisibleRows(listing, scrollValue, breakpoints, 2)) {
            texts.push_back(marks(row));
        }
        return texts;
    };
    const Listing small = ListingOfDisassembly(Disassembly(3) + "0002    0000    again\r\n");
    EXPECT_EQ(marksOf(small, 1), (Texts{"", "", "", "", "", "", "b", "bp"})) << "one mark for pc";
    EXPECT_EQ(VisibleRows(small, 1, breakpoints, 2)[2].address, std::nullopt);

    const Listing large = ListingOfDisassembly(Disassembly(40));
    EXPECT_EQ(marksOf(large, 1).size(), 20U);
    EXPECT_EQ(marksOf(large, 1)[6], "bp");
    EXPECT_EQ(marksOf(large, 7)[0], "bp");
    EXPECT_EQ(marksOf(large, 8), Texts(20));
    EXPECT_EQ(VisibleRows(large, 25, breakpoints, 2).back().text, large.back().text);
}

}  // namespace
}  // namespace corvane::app
