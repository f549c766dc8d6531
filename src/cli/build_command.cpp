#include "cli/build_command.h"

#include <array>

#include "cli/assemble_command.h"
#include "cli/compile_command.h"
#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/source_file.h"

namespace corvane::cli {

CommandResult Build(const BuildOptions& options) {
    AssembleOptions assembling = {.model = options.model,
                                  .source = options.source,
                                  .hexFile = options.hexFile,
                                  .listingFile = "",
                                  .configurationWord = options.configurationWord};
    const FileKind kind = KindOf(options.source);
    if (kind == FileKind::Assembler) {
        return Assemble(assembling);
    }
    if (kind != FileKind::Basic) {
        return WrongUsage(ErrorText(options.source, "The name must end in .bas or .asm."));
    }
    assembling.source = NameBeside(options.source, ".asm");
    if (const auto conflict = OutputConflict(std::array{options.source, assembling.source},
                                             std::array{options.hexFile})) {
        return WrongUsage(*conflict);
    }
    CommandResult compiled = Compile({.model = options.model,
                                      .source = options.source,
                                      .assemblerFile = assembling.source,
                                      .clockFrequency = options.clockFrequency});
    return compiled.ending == Ending::Done ? Assemble(assembling) : compiled;
}

}  // namespace corvane::cli
