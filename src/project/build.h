// Building programs from sources, with what a person is told of them as values.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "asm/assembler.h"
#include "basic/compiler.h"
#include "loader/intel_hex.h"
#include "project/messages.h"
#include "project/model_files.h"
#include "project/program_kind.h"

namespace corvane::project {

inline constexpr std::string_view kEmptySource = "The editor is empty.";

// The whole text of a source; nothing of an empty one.
std::optional<std::string> ReadSource(const std::string& file, Messages& messages);

// Assembles for the model. FILE is the name that messages bear. Errors come in line order, each
// with its notes, and then their number.
assembler::Assembly AssembleText(const std::string& file, std::string_view text,
                                 const ModelFile& modelFile, int configurationWord,
                                 Messages& messages);

// Rewrites the text as the BASIC editor does, and compiles it to assembler text. The clock
// frequency is in MHz.
std::optional<basic::Compilation> CompileText(const std::string& file, std::string_view text,
                                              const ModelFile& modelFile, float clockFrequency,
                                              Messages& messages);

struct Build {
    std::string text;  // of the source
    std::optional<basic::Compilation> compilation{};
    assembler::Assembly assembly{};  // of the text, or of what it was compiled to
    loader::Program image{};
};

// A source of the kind Assembler or Basic, as far as the words.
std::optional<Build> BuildText(const std::string& file, ProgramKind kind, std::string text,
                               const ModelFile& modelFile, float clockFrequency,
                               Messages& messages);

}  // namespace corvane::project
