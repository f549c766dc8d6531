// Reading a program together with its source, for the check.
#pragma once

#include <string>

#include "cli/model_files.h"
#include "common/result.h"
#include "project/sourced_program.h"

namespace corvane::cli {

struct CheckedFile {
    std::string name;             // .hex, .asm or .bas
    bool withoutSource = false;   // of a .hex file: what lies beside it is not looked at
    float clockFrequency = 4.0F;  // MHz, for which BASIC is compiled
};

// The source of a .hex file is what lies beside it with the same name and makes the same words:
// its .cod file, else the .bas, else the .asm file. The error is complete.
common::Result<project::SourcedProgram> ReadCheckedProgram(const CheckedFile& file,
                                                           const ModelFile& modelFile);

}  // namespace corvane::cli
