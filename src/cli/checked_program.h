// A program as the check needs it: its words, and what its source says about them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/check.h"
#include "cli/model_files.h"
#include "common/result.h"

namespace corvane::cli {

struct SourceLine {
    std::string file;  // as messages name it
    int number = 0;    // from 1
    std::string text;
};

struct CheckedProgram {
    check::Program program;
    std::vector<std::optional<SourceLine>> lines;  // by address of the word that a line made
};

// A .hex, .asm or .bas file. The clock frequency is in MHz. The error is complete.
common::Result<CheckedProgram> ReadCheckedProgram(const std::string& file,
                                                  const ModelFile& modelFile, float clockFrequency);

}  // namespace corvane::cli
