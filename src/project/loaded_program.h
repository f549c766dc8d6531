// A program, whatever it is made from, with the model that it is for and the source behind it.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "models/defaults.h"
#include "project/build.h"
#include "project/cod_file.h"
#include "project/gpasm_build.h"
#include "project/messages.h"
#include "project/model_files.h"
#include "project/program.h"
#include "project/program_kind.h"
#include "project/sourced_program.h"

namespace corvane::project {

// What tells how a program becomes words.
struct ProgramSource {
    std::string file{};                 // .hex, .asm or .bas, or a pipe
    std::optional<ProgramKind> kind{};  // as the person says; else the name tells, or the text
    ModelChoice model{};
    AssemblerChoice assembler{};  // of an .asm file
    bool withoutSource = false;   // what lies beside a .hex file is not looked at
    float clockFrequency = models::kDefaultClockFrequency;  // MHz, for which BASIC is compiled
};

// What has made a program's words: a source, or the .cod file that leads to the sources.
struct Origin {
    std::string file;  // the source, or the .cod file, as messages name it
    std::optional<Build> build{};
    std::optional<CodFile> cod{};
    std::string ownName{};  // the source's in the .cod file; empty: all names are from its folder
};

struct LoadedProgram {
    ModelFile modelFile;
    loader::Program image;
    std::optional<Origin> origin;
};

// Without a chosen model the processor that the .cod file of the program names decides. The source
// of a .hex file is what lies beside it with the same name and makes the same words: its .cod file,
// else the .bas, else the .asm file.
std::optional<LoadedProgram> LoadProgram(const ProgramSource& source, Messages& messages);

// With the names and the lines that its origin tells.
Program WithNames(const LoadedProgram& loaded);

// With what its origin means by its operands, for the check.
SourcedProgram WithOperands(const LoadedProgram& loaded);

}  // namespace corvane::project
