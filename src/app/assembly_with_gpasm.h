// Assembling the Assembler window's source with gpasm, and what both assemblies have in common.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "app/translate.h"
#include "project/sourced_program.h"

namespace corvane::app {

// The processor is the one that the source names, else the selected model. What gpasm says stands
// in the messages, which name the source by its name without folder. Files are written as
// AssembleSource says, and the .cod file too.
AssemblyRun AssembleWithGpasm(const Workbench& workbench, Dialogs& dialogs,
                              const SourceFile& source, std::string_view text,
                              const std::function<bool()>& isCancelled);

// What a check of the program finds stands below the other messages. Messages name its words that
// no line has made by the file.
void AddFindings(AssemblyRun& run, const Workbench& workbench, const std::string& file,
                 const project::SourcedProgram& program);

// So that an older result is never taken for the new one.
void RemoveOldResults(std::initializer_list<std::string> paths);

}  // namespace corvane::app
