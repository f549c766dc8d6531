// The program of the text in an editor, as far as it is the one that is loaded.
#pragma once

#include <string>

#include "app/workbench.h"
#include "common/result.h"
#include "project/program.h"
#include "project/program_kind.h"

namespace corvane::app {

// Translates the text for the selected model, as the Assembler or the BASIC Compiler window does.
// Of what another assembler has made the .cod file beside the program tells, as long as the text is
// the one that it was made from. The loaded program with the text's lines and names; or why it is
// not the text's program, empty while none is loaded.
common::Result<project::Program> EditedProgram(const Workbench& workbench, const std::string& file,
                                               project::ProgramKind kind, const std::string& text);

// The text's line whose words are executed next, from 1; 0 when they are of no line. In a routine
// that no line has made it is the line that has called it.
int NextLine(const project::Program& program, const core::ProcessorState& state);

}  // namespace corvane::app
