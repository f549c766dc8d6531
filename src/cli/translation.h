// The translators with the messages that a command owes: warnings go to standard error at once,
// errors are returned complete, one a line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "asm/assembler.h"
#include "basic/compiler.h"
#include "cli/model_files.h"
#include "common/result.h"
#include "loader/intel_hex.h"

namespace corvane::cli {

// Assembles for the model. FILE is the name that messages bear.
assembler::Assembly AssembleText(const std::string& file, std::string_view text,
                                 const ModelFile& modelFile, int configurationWord);

// The errors of an assembly that has some, in line order, each with its notes, and their number.
std::string AssemblyErrors(const std::string& file, const assembler::Assembly& assembly);

// Rewrites the text as the BASIC editor does, and compiles it to assembler text. The clock
// frequency is in MHz.
common::Result<basic::Compilation> CompileText(const std::string& file, std::string_view text,
                                               const ModelFile& modelFile, float clockFrequency);

// A source built without a word.
struct QuietBuild {
    std::string text;  // as the file has it
    std::optional<basic::Compilation> compilation{};
    assembler::Assembly assembly{};
    loader::Program image{};
};

// Nothing when the .asm or .bas file cannot be read or has errors.
std::optional<QuietBuild> BuildQuietly(const std::string& file, const ModelFile& modelFile,
                                       float clockFrequency);

}  // namespace corvane::cli
