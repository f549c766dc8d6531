// The BASIC compiler: BASIC text in, assembler text out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basic/variables.h"
#include "common/diagnostic.h"
#include "common/progress.h"
#include "common/result.h"
#include "models/catalogue.h"
#include "models/description.h"

namespace corvane::basic {

struct LineLabel {
    std::string name;
    std::string assemblerLabel;
};

struct Compilation {
    std::string assembler;  // CR LF line ends
    // Of each line of the assembler text the BASIC line that it comes from, from 1; 0 of the lines
    // before the program and of the end and the run-time routines behind it.
    std::vector<int> sourceLines;
    std::vector<DeclaredVariable> variables;  // in the order of their declaration
    std::vector<LineLabel> labels;
    std::vector<common::Diagnostic> warnings;  // in line order
};

// Compiles a text that RewriteText has brought into form. The clock frequency is in MHz. The
// diagnostics name no file.
common::Result<Compilation, common::Diagnostic> Compile(
    std::string_view text, const models::Model& model, const models::ModelDescription& description,
    float clockFrequency, const common::ProgressCallback& progress = {});

}  // namespace corvane::basic
