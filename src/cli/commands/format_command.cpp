#include "cli/commands/format_command.h"

#include <optional>

#include "basic/editor_form.h"
#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/source_input.h"

namespace corvane::cli {

CommandResult Format(const FormatOptions& options) {
    if (const auto error = WrongKind(options.source, {project::ProgramKind::Basic})) {
        return WrongUsage(*error);
    }
    const std::optional<SourceInput> input = ReadSourceInput(options.model, options.source);
    if (!input) {
        return Refused("");
    }
    const models::ModelDescription& description = input->modelFile.description;
    project::Messages messages;
    project::AddBadSymbolLines(input->modelFile, description.basicSymbolLines, messages);
    Report(messages);
    const std::string rewritten =
        basic::RewriteText(input->text, basic::EditorKeywords(description));
    const std::optional<std::string> error =
        WriteOutput(options.inPlace ? options.source : "-", rewritten);
    return error ? Refused(*error) : CommandResult{};
}

}  // namespace corvane::cli
