// The form that the editor gives to every line, and that the compiler's word matching relies on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/colored_span.h"
#include "models/description.h"

namespace corvane::basic {

struct EditorKeyword {
    std::string search;   // lower case
    std::string display;  // as it is written: "Dim", "WaitMs", "PORTB"
};

// The 32 language keywords, then the model's register names.
std::vector<EditorKeyword> EditorKeywords(const models::ModelDescription& description);

// One line without line end, rewritten.
std::string RewriteLine(std::string_view line, const std::vector<EditorKeyword>& keywords);

// Every line rewritten, each ended by CR LF; a missing last line end is added.
std::string RewriteText(std::string_view text, const std::vector<EditorKeyword>& keywords);

// The spans of a rewritten line that are not of the normal colour; later ones cover earlier ones.
std::vector<common::ColoredSpan> ColorLine(std::string_view line,
                                           const std::vector<EditorKeyword>& keywords);

}  // namespace corvane::basic
