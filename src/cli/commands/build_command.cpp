#include "cli/commands/build_command.h"

#include <array>

#include "cli/commands/assemble_command.h"
#include "cli/commands/compile_command.h"
#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/source_input.h"

namespace corvane::cli {

CommandResult Build(const BuildOptions& options) {
    AssembleOptions assembling = {.model = options.model,
                                  .source = options.source,
                                  .hexFile = options.hexFile.empty()
                                                 ? project::NameBeside(options.source, ".hex")
                                                 : options.hexFile,
                                  .listingFile = "",
                                  .configurationWord = options.configurationWord,
                                  .assembler = options.assembler};
    if (const auto error = WrongKind(
            options.source, {project::ProgramKind::Basic, project::ProgramKind::Assembler})) {
        return WrongUsage(*error);
    }
    if (project::KindOf(options.source) == project::ProgramKind::Assembler) {
        return Assemble(assembling);
    }
    assembling.source = project::NameBeside(options.source, ".asm");
    if (const auto conflict = OutputConflict(
            std::array{options.source, assembling.source, project::ModelFilePath(options.model)},
            std::array{options.hexFile})) {
        return WrongUsage(*conflict);
    }
    CommandResult compiled = Compile({.model = options.model,
                                      .source = options.source,
                                      .assemblerFile = assembling.source,
                                      .clockFrequency = options.clockFrequency});
    if (compiled.ending == Ending::Done) {
        return Assemble(assembling);
    }
    if (const auto error = RemoveOldResult(assembling.hexFile, options.source)) {
        compiled.message += (compiled.message.empty() ? "" : "\n") + *error;
    }
    return compiled;
}

}  // namespace corvane::cli
