#include "cli/program_input.h"

#include <utility>

#include "cli/diagnostics.h"
#include "cli/interrupt.h"

namespace corvane::cli {

common::Result<project::LoadedProgram, CommandResult> LoadOrReport(project::ProgramSource source) {
    using LoadResult = common::Result<project::LoadedProgram, CommandResult>;
    if (project::IsForGpasm(source.assembler, source.file)) {
        CatchInterrupts();
        source.assembler.isCancelled = [] { return IsInterrupted(); };
    }
    project::Messages messages;
    std::optional<project::LoadedProgram> loaded = project::LoadProgram(source, messages);
    Report(messages);
    if (loaded) {
        return LoadResult::Success(*std::move(loaded));
    }
    const bool isInterrupted = source.assembler.isCancelled && IsInterrupted();
    return LoadResult::Failure(isInterrupted ? CommandResult{Ending::Interrupted, ""}
                                             : Refused(""));
}

}  // namespace corvane::cli
