#include "cli/build_command.h"

#include <array>

#include "cli/assemble_command.h"
#include "cli/compile_command.h"
#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/source_file.h"

namespace corvane::cli {

CommandResult Build(const BuildOptions& options) {
    AssembleOptions assembling = {
        .model = options.model,
        .source = options.source,
        .hexFile = options.hexFile.empty() ? NameBeside(options.source, ".hex") : options.hexFile,
        .listingFile = "",
        .configurationWord = options.configurationWord,
        .assembler = options.assembler};
    if (const auto error = WrongKind(options.source, {FileKind::Basic, FileKind::Assembler})) {
        return WrongUsage(*error);
    }
    if (KindOf(options.source) == FileKind::Assembler) {
        return Assemble(assembling);
    }
    assembling.source = NameBeside(options.source, ".asm");
    if (const auto conflict = OutputConflict(
            std::array{options.source, assembling.source, ModelFilePath(options.model)},
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
    compiled.message += RemoveOldResult(assembling.hexFile, options.source);
    return compiled;
}

}  // namespace corvane::cli
