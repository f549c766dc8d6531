// Compiling from a test: the models as they ship, and texts as a person types them.
#pragma once

#include <string>
#include <string_view>

#include "basic/compiler.h"

namespace corvane::basic {

const models::Model& ModelNamed(std::string_view name);

// The model's description file from data/models.
models::ModelDescription Description(const models::Model& model);

std::string ReadSourceFile(const std::string& pathInSourceTree);

// Rewrites the text, then compiles it. The clock frequency is in MHz.
common::Result<Compilation, LineMessage> CompileSource(std::string_view text,
                                                       const models::Model& model,
                                                       const models::ModelDescription& description,
                                                       float clockFrequency = 4.0F);

// "Error in line 3: Syntax error.", or nothing.
std::string CompileError(std::string_view text, std::string_view modelName = "PIC16F84");

}  // namespace corvane::basic
