// The listing of an assembly.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "asm/assembler.h"

namespace corvane::assembler {

// Heading, each source line with its number, address and word, the message under a line with an
// error, and the number of errors; every line ends with CR LF.
std::string ListingText(const Assembly& assembly);

// What a line of a listing says of the program: without the line's number, and without the address
// where it has no word, which is how a disassembly lists it.
std::string ProgramLine(std::string_view listingLine);

// Where the listing has a line's message; both lines count from 1.
struct ListedError {
    int listingLine;
    int sourceLine;
};
std::vector<ListedError> ErrorsInListing(const Assembly& assembly);

}  // namespace corvane::assembler
