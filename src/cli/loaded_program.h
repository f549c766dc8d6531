// A program with the model that it is for.
#pragma once

#include <string>

#include "cli/command_result.h"
#include "cli/gpasm_build.h"
#include "cli/model_files.h"
#include "cli/program_file.h"
#include "common/result.h"

namespace corvane::cli {

// What tells how a program becomes words.
struct ProgramSource {
    ProgramFile file;
    ModelOptions model;
    AssemblerOptions assembler;   // of an .asm file
    bool withoutSource = false;   // what lies beside a .hex file is not looked at
    float clockFrequency = 4.0F;  // MHz, for which BASIC is compiled
};

struct LoadedProgram {
    ModelFile modelFile;
    project::Program program;
};

// Without --model the processor that the .cod file of the program names decides. The source of a
// .hex file is what lies beside it with the same name and makes the same words: its .cod file, else
// the .bas, else the .asm file.
common::Result<LoadedProgram, CommandResult> LoadProgram(const ProgramSource& source);

// The model for a .hex file: the person's, else that of the .cod file which belongs to it.
common::Result<ModelOptions> ModelOfHexFile(const std::string& file, const ModelOptions& model,
                                            bool withoutSource);

}  // namespace corvane::cli
