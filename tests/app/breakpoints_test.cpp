#include "app/breakpoint_list.h"
#include "app/breakpoint_listing.h"
#include "fakes.h"

namespace corvane::app {
namespace {

std::string Padded(std::string text) {
    text.resize(kListingColumns, ' ');
    return text;
}

// A disassembly of this many words.
std::string Disassembly(int words) {
    std::string text = "---\r\nPIC DISASSEMBLER LISTING\r\nAddress Opcode  Instruction\r\n---\r\n";
    for (int address = 0; address < words; ++address) {
        text += common::Hex4(address) + "    0000    NOP\r\n";
    }
    return text;
}

TEST(BreakpointList, TenSlotsInOrder) {
    BreakpointList list;
    for (const int address : {0x40, 0x12, 0x20}) {
        EXPECT_TRUE(list.Toggle(address));
    }
    EXPECT_EQ(list.Slots(), (std::array<std::string, 10>{"0012", "0020", "0040"}));
    for (int address = 0x100; address < 0x107; ++address) {
        EXPECT_TRUE(list.Toggle(address));
    }
    EXPECT_FALSE(list.Toggle(0)) << "an eleventh";
    EXPECT_TRUE(list.Contains(0x106));
    EXPECT_TRUE(list.Toggle(0x20)) << "one of ten is cleared";
    EXPECT_FALSE(list.Contains(0x20));
    EXPECT_TRUE(list.Toggle(0));
    EXPECT_EQ(list.Slots()[0], "0000");
    EXPECT_EQ(list.Slots()[9], "0106");
}

TEST(BreakpointListing, LinesOfAnAssemblerListing) {
    struct Case {
        const char* line;
        const char* shown;
        std::optional<int> address;
    };
    const Case cases[] = {
        {"0001    0000    3005    start: MOVLW 5", "0000    3005    start: MOVLW 5", 0},
        {"0002    0001            label:", "                label:", {}},
        {"0003    0001    ****    bad", "        ****    bad", {}},
        {"0004    ", "", {}},
        {"0004    00", "00", {}},
        {"", "", {}},
        {"0A2F    FFFF\tx", "    \tx", {}},
        {"12AB  xx3005", "12AB  xx3005", 0x12AB},
        {"00ab    3005", "3005", {}},
        {"abcd    abcd    0000", "abcd    0000", {}},
        {"0005    0001    0063\tSLEEP ; \xC2\xB5\xC2\xB5 a long comment, cut off", nullptr, 1},
    };
    std::string file;
    for (const Case& c : cases) {
        file += std::string(c.line) + "\r\n";
    }
    const Listing listing = ListingOfFile(file);
    ASSERT_EQ(listing.size(), std::size(cases));
    for (std::size_t i = 0; i < listing.size(); ++i) {
        EXPECT_EQ(listing[i].address, cases[i].address) << cases[i].line;
    }
    EXPECT_EQ(listing[0].text, Padded(cases[0].shown));
    EXPECT_EQ(listing[1].text, Padded(cases[1].shown));
    EXPECT_EQ(listing[2].text, Padded(cases[2].shown));
    EXPECT_EQ(listing[5].text, Padded(""));
    EXPECT_EQ(listing[6].text, Padded("        x")) << "the tab is four blanks";
    EXPECT_EQ(listing[7].text, Padded(cases[7].shown));
    EXPECT_EQ(listing[10].text, "0001    0063    SLEEP ; \xC2\xB5\xC2\xB5 a long comment");
}

TEST(BreakpointListing, AListingOfTheDisassemblerKeepsItsColumns) {
    const std::string disassembly = Disassembly(2);
    for (const Listing& listing : {ListingOfFile(disassembly), ListingOfDisassembly(disassembly)}) {
        ASSERT_EQ(listing.size(), 6U);
        EXPECT_EQ(listing[2].text, Padded("Address Opcode  Instruction"));
        EXPECT_EQ(listing[2].address, std::nullopt);
        EXPECT_EQ(listing[5].text, Padded("0001    0000    NOP"));
        EXPECT_EQ(listing[5].address, 1);
    }
    EXPECT_TRUE(ListingOfFile("").empty());
}

TEST(BreakpointListing, ScrollingAndHolding) {
    EXPECT_EQ(LargestScrollValue({}), 1);
    EXPECT_EQ(LargestScrollValue(ListingOfDisassembly(Disassembly(16))), 1);
    EXPECT_EQ(LargestScrollValue(ListingOfDisassembly(Disassembly(17))), 2);
    EXPECT_EQ(LargestScrollValue(ListingOfDisassembly(Disassembly(8192))), 8177);

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
        EXPECT_EQ(ScrollValueForPc(listing, c.scrollValue, c.pc), c.moved)
            << c.scrollValue << " " << c.pc;
    }
    EXPECT_EQ(ScrollValueForPc({}, 1, 0), std::nullopt);
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

TEST_F(WorkbenchTest, TheListingFileIsUsedWhenAPersonWantsIt) {
    ASSERT_TRUE(StartUp());
    Load({0x3005, 0x0063});
    EXPECT_EQ(workbench->BuildBreakpointListing(dialogs).size(), 6U);
    EXPECT_EQ(dialogs.Shown(), Texts{}) << "there is no listing file";

    const std::string path = folder.Write("program.lst", "0001    0000    3005    x\r\n");
    dialogs.answers = {false, true};
    EXPECT_EQ(workbench->BuildBreakpointListing(dialogs).size(), 6U);
    EXPECT_EQ(workbench->BuildBreakpointListing(dialogs).size(), 1U);
    const std::string question = "Do you want to use existing listing file " + path + "?";
    EXPECT_EQ(dialogs.Shown(), (Texts{question, question}));

    fs::remove(path);
    fs::create_directory(path);
    dialogs.answers = {true};
    EXPECT_EQ(workbench->BuildBreakpointListing(dialogs).size(), 6U);
    EXPECT_EQ(dialogs.Shown().back(), "File '" + path + "' could not be opened.");

    workbench->LoadProgramFile(folder.Write("program.HEX", HexOf({0})));
    dialogs.Shown();
    EXPECT_EQ(workbench->BuildBreakpointListing(dialogs).size(), 5U);
    EXPECT_EQ(dialogs.Shown(), Texts{}) << "an upper-case name leads to no listing";
}

TEST_F(WorkbenchTest, BreakpointsRedrawTheManager) {
    ASSERT_TRUE(StartUp());
    Open({Window::BreakpointsManager});
    for (int address = 0; address < 10; ++address) {
        workbench->ToggleBreakpoint(dialogs, address * 0x1000);  // some are no address of pc
    }
    EXPECT_EQ(views.Calls().size(), 10U);
    workbench->ToggleBreakpoint(dialogs, 0x123);
    EXPECT_EQ(dialogs.Shown(), Texts{"You can not define more than 10 breakpoints."});
    EXPECT_EQ(views.Calls(), Texts{});
    workbench->ClearBreakpoints();
    EXPECT_EQ(views.Calls(), Texts{"drawlines"});
    EXPECT_EQ(workbench->Breakpoints().Slots()[0], "");
}

}  // namespace
}  // namespace corvane::app
