// Which parts of a source line an editor sets off by colour.
#pragma once

#include <string_view>
#include <vector>

#include "common/colored_span.h"

namespace corvane::assembler {

// The spans that are not of the normal colour; later ones cover earlier ones. At most one keyword
// of a line is coloured: of the instructions and directives that stand between blanks or tabs, the
// one that comes first in the keyword list, which is ordered by kind (byte, bit, literal and
// control instructions, directives) and not by the place in the line.
std::vector<common::ColoredSpan> ColorLine(std::string_view line);

}  // namespace corvane::assembler
