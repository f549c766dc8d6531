// The program listing of the Breakpoints Manager: its lines, and what the rows show of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/breakpoint_list.h"

namespace corvane::app {

constexpr int kListingRows = 20;
constexpr int kListingColumns = 41;

struct ListingLine {
    std::string text;            // kListingColumns characters
    std::optional<int> address;  // of the program word, if the line has one
};

using Listing = std::vector<ListingLine>;

// The lines of an assembler listing file, or of one that the disassembler has saved.
Listing ListingOfFile(std::string_view text);
// The lines of a disassembly with opcodes.
Listing ListingOfDisassembly(std::string_view text);

// The largest value of the scroll bar, which starts at 1 and is disabled when this is 1.
int LargestScrollValue(const Listing& listing);

struct ListingRow {
    std::string_view text;       // points into the listing
    std::optional<int> address;  // rows with one can take a breakpoint
    bool hasBreakpoint = false;
    bool hasPc = false;
};

// The visible rows from listing line scrollValue (from 1) on, at most kListingRows.
std::vector<ListingRow> VisibleRows(const Listing& listing, int scrollValue,
                                    const BreakpointList& breakpoints, int pc);

// The scroll value that brings the line of this address into view, as Hold PC In Focus wants it for
// pc; nothing when it is in view already or not in the listing.
std::optional<int> ScrollValueFor(const Listing& listing, int scrollValue, int address);

}  // namespace corvane::app
