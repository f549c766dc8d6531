// The translators with the messages that a command owes: warnings go to standard error at once,
// errors are returned complete, one a line.
#pragma once

#include <string>
#include <string_view>

#include "asm/assembler.h"
#include "cli/model_files.h"
#include "common/result.h"

namespace corvane::cli {

// Assembles for the model. FILE is the name that messages bear.
assembler::Assembly AssembleText(const std::string& file, std::string_view text,
                                 const ModelFile& modelFile, int configurationWord);

// The errors of an assembly that has some, in line order, each with its notes, and their number.
std::string AssemblyErrors(const std::string& file, const assembler::Assembly& assembly);

// Rewrites the text as the BASIC editor does, and compiles it to assembler text. The clock
// frequency is in MHz.
common::Result<std::string> CompileText(const std::string& file, std::string_view text,
                                        const ModelFile& modelFile, float clockFrequency);

}  // namespace corvane::cli
