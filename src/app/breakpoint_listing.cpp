#include "app/breakpoint_listing.h"

#include <algorithm>
#include <cstddef>

#include "asm/listing.h"
#include "common/text.h"
#include "disasm/listing.h"

namespace corvane::app {

namespace {

constexpr std::string_view kFourBlanks = "    ";

// Each tab as four blanks, cut or padded to the listing's width.
std::string Row(std::string_view line) {
    std::string row;
    for (const char c : line) {
        if (c == '\t') {
            row += kFourBlanks;
        } else {
            row += c;
        }
    }
    row.resize(common::FirstCharacters(row, kListingColumns).size());
    row.append(kListingColumns - common::CharacterCount(row), ' ');
    return row;
}

void AppendLine(Listing& listing, std::string_view line) {
    listing.push_back({Row(line), disasm::ListedAddress(line)});
}

// The text's first line is line 1 of the scroll bar.
std::size_t IndexOf(int scrollValue, int row) {
    return static_cast<std::size_t>(scrollValue - 1 + row);
}

}  // namespace

Listing ListingOfFile(std::string_view text) {
    const std::vector<std::string_view> lines = common::SplitLines(text);
    if (lines.size() > 1 && lines[1] == disasm::kTitle) {
        return ListingOfDisassembly(text);
    }
    Listing listing;
    listing.reserve(lines.size());
    for (const std::string_view line : lines) {
        AppendLine(listing, assembler::ProgramLine(line));
    }
    return listing;
}

Listing ListingOfDisassembly(std::string_view text) {
    Listing listing;
    for (const std::string_view line : common::SplitLines(text)) {
        AppendLine(listing, line);
    }
    return listing;
}

int LargestScrollValue(const Listing& listing) {
    return std::max(1, static_cast<int>(listing.size()) - kListingRows + 1);
}

std::vector<ListingRow> VisibleRows(const Listing& listing, int scrollValue,
                                    const BreakpointList& breakpoints, int pc) {
    std::vector<ListingRow> rows;
    std::optional<std::size_t> pcRow;
    for (int r = 0; r < kListingRows && IndexOf(scrollValue, r) < listing.size(); ++r) {
        const ListingLine& line = listing[IndexOf(scrollValue, r)];
        if (line.address == pc) {
            pcRow = rows.size();
        }
        rows.push_back({.text = line.text,
                        .address = line.address,
                        .hasBreakpoint = line.address && breakpoints.Contains(*line.address)});
    }
    if (pcRow) {  // there is one mark: the last of several rows has it
        rows[*pcRow].hasPc = true;
    }
    return rows;
}

std::optional<int> ScrollValueFor(const Listing& listing, int scrollValue, int address) {
    const auto isWanted = [address](const ListingLine& line) { return line.address == address; };
    const auto first = listing.begin() + static_cast<std::ptrdiff_t>(
                                             std::min(IndexOf(scrollValue, 0), listing.size()));
    const auto last = first + std::min<std::ptrdiff_t>(kListingRows, listing.end() - first);
    if (std::any_of(first, last, isWanted)) {
        return std::nullopt;
    }
    const auto found = std::ranges::find_if(listing, isWanted);
    if (found == listing.end()) {
        return std::nullopt;
    }
    return std::min(static_cast<int>(found - listing.begin()) + 1, LargestScrollValue(listing));
}

}  // namespace corvane::app
