#include "cli/format_command.h"

#include <optional>

#include "basic/editor_form.h"
#include "cli/output.h"
#include "cli/source_file.h"

namespace corvane::cli {

CommandResult Format(const FormatOptions& options) {
    if (const auto error = WrongKind(options.source, {FileKind::Basic})) {
        return WrongUsage(*error);
    }
    const common::Result<SourceInput> input = ReadSourceInput(options.model, options.source);
    if (!input) {
        return Refused(input.error);
    }
    const models::ModelDescription& description = input->modelFile.description;
    ReportBadSymbolLines(input->modelFile, description.basicSymbolLines);
    const std::string rewritten =
        basic::RewriteText(input->text, basic::EditorKeywords(description));
    const std::optional<std::string> error =
        WriteOutput(options.inPlace ? options.source : "-", rewritten);
    return error ? Refused(*error) : CommandResult{};
}

}  // namespace corvane::cli
