#include "cli/commands/compile_command.h"

#include <array>
#include <optional>

#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/source_input.h"
#include "project/build.h"

namespace corvane::cli {

CommandResult Compile(const CompileOptions& options) {
    if (const auto error = WrongKind(options.source, {project::ProgramKind::Basic})) {
        return WrongUsage(*error);
    }
    const std::string assemblerFile = options.assemblerFile.empty()
                                          ? project::NameBeside(options.source, ".asm")
                                          : options.assemblerFile;
    if (const auto conflict =
            OutputConflict(std::array{options.source, project::ModelFilePath(options.model)},
                           std::array{assemblerFile})) {
        return WrongUsage(*conflict);
    }
    const std::optional<SourceInput> input = ReadSourceInput(options.model, options.source);
    if (!input) {
        return Refused("");
    }
    project::Messages messages;
    const std::optional<basic::Compilation> compilation = project::CompileText(
        options.source, input->text, input->modelFile, options.clockFrequency, messages);
    Report(messages);
    if (!compilation) {
        return Refused("");
    }
    const std::optional<std::string> error = WriteOutput(assemblerFile, compilation->assembler);
    return error ? Refused(*error) : CommandResult{};
}

}  // namespace corvane::cli
