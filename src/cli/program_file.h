// Programs for the simulated chip: Intel HEX files, or sources that are built in memory.
#pragma once

#include <optional>
#include <string>

#include "cli/model_files.h"
#include "cli/source_file.h"
#include "common/result.h"
#include "loader/intel_hex.h"
#include "project/program.h"

namespace corvane::cli {

// The errors are complete.
common::Result<loader::Program> ReadHexFile(const std::string& file, const models::Model& model);

// The text of a HEX file that somebody else has made, perhaps for another model: words beyond its
// memory give a warning.
common::Result<loader::Program> LoadHexFile(const std::string& file, std::string_view text,
                                            const models::Model& model);

struct ProgramFile {
    std::string name;
    std::optional<FileKind> kind;  // as the person says; else the name tells, or the text
};

// A .hex, .asm or .bas file, or a pipe. The clock frequency is in MHz.
common::Result<project::Program> ReadProgram(const ProgramFile& file, const ModelFile& modelFile,
                                             float clockFrequency);

}  // namespace corvane::cli
