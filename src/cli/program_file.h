// Programs for the simulated chip: Intel HEX files, or sources that are built in memory.
#pragma once

#include <string>

#include "cli/model_files.h"
#include "common/result.h"
#include "loader/intel_hex.h"

namespace corvane::cli {

// The errors are complete.
common::Result<loader::Program> ReadHexFile(const std::string& file, const models::Model& model);

// A .hex, .asm or .bas file. The clock frequency is in MHz.
common::Result<loader::Program> ReadProgram(const std::string& file, const ModelFile& modelFile,
                                            float clockFrequency);

}  // namespace corvane::cli
