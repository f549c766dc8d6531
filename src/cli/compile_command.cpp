#include "cli/compile_command.h"

#include <array>
#include <optional>

#include "cli/output.h"
#include "cli/source_file.h"
#include "cli/translation.h"

namespace corvane::cli {

CommandResult Compile(const CompileOptions& options) {
    if (const auto error = WrongKind(options.source, {FileKind::Basic})) {
        return WrongUsage(*error);
    }
    const std::string assemblerFile =
        options.assemblerFile.empty() ? NameBeside(options.source, ".asm") : options.assemblerFile;
    if (const auto conflict = OutputConflict(
            std::array{options.source, ModelFilePath(options.model)}, std::array{assemblerFile})) {
        return WrongUsage(*conflict);
    }
    const common::Result<SourceInput> input = ReadSourceInput(options.model, options.source);
    if (!input) {
        return Refused(input.error);
    }
    const common::Result<basic::Compilation> compilation =
        CompileText(options.source, input->text, input->modelFile, options.clockFrequency);
    if (!compilation) {
        return Refused(compilation.error);
    }
    const std::optional<std::string> error = WriteOutput(assemblerFile, compilation->assembler);
    return error ? Refused(*error) : CommandResult{};
}

}  // namespace corvane::cli
