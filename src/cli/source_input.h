// What a command on a source checks and reads first.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>

#include "cli/command_result.h"
#include "common/result.h"
#include "project/model_files.h"
#include "project/program_kind.h"

namespace corvane::cli {

// Why a command that takes only these kinds refuses the name: "FILE: error: The name must end in
// .asm.". Nothing when it is one of them.
std::optional<std::string> WrongKind(const std::string& file,
                                     std::initializer_list<project::ProgramKind> kinds);

struct SourceInput {
    project::ModelFile modelFile;
    std::string text;
};

// The model's description file, then the source, which must not be empty. Nothing after a message.
std::optional<SourceInput> ReadSourceInput(const project::ModelChoice& model,
                                           const std::string& file);

}  // namespace corvane::cli
