// Between the words of a program and the lines of its sources, as a debugger needs them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "inspect/names.h"
#include "project/program.h"

namespace corvane::cli {

// Addresses that a person has named, and a note where they are not quite what was asked for.
struct NamedAddresses {
    std::vector<int> addresses;
    std::string note;
};

// WHERE is a label, one to four hexadecimal digits (perhaps behind 0x), or FILE:LINE: each place
// where words of the line begin, or of the next line of the file that has some.
common::Result<NamedAddresses> FindAddresses(std::string_view where, const inspect::Names& names,
                                             const project::Program& program);

// The source around an address, its own line marked; the error says why there is none.
common::Result<std::string> ListAround(int address, const project::Program& program);

}  // namespace corvane::cli
