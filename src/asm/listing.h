// The listing of an assembly.
#pragma once

#include <string>
#include <vector>

#include "asm/assembler.h"

namespace corvane::assembler {

// Heading, each source line with its number, address and word, the message under a line with an
// error, and the number of errors; every line ends with CR LF.
std::string ListingText(const Assembly& assembly);

// Where the listing has a line's message; both lines count from 1.
struct ListedError {
    int listingLine;
    int sourceLine;
};
std::vector<ListedError> ErrorsInListing(const Assembly& assembly);

}  // namespace corvane::assembler
