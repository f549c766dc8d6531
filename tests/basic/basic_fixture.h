// Compiling from a test: the models as they ship, and texts as a person types them.
#pragma once

#include <string>
#include <string_view>

#include "basic/compiler.h"
#include "basic/editor_form.h"
#include "shipped_files.h"

namespace corvane::basic {

// Rewrites the text, then compiles it. The clock frequency is in MHz.
inline common::Result<Compilation, common::Diagnostic> CompileSource(
    std::string_view text, const models::Model& model, const models::ModelDescription& description,
    float clockFrequency = 4.0F) {
    return Compile(RewriteText(text, EditorKeywords(description)), model, description,
                   clockFrequency);
}

// "Error in line 3: Syntax error.", or nothing.
inline std::string CompileError(std::string_view text) {
    const models::Model& model = ModelNamed("PIC16F84");
    const auto compilation = CompileSource(text, model, DescriptionOf(model));
    return compilation ? "" : TextWithLine(compilation.error);
}

}  // namespace corvane::basic
