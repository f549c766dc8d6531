#include "cli/format_command.h"

#include <optional>

#include "basic/editor_form.h"
#include "cli/output.h"
#include "cli/source_file.h"

namespace corvane::cli {

CommandResult Format(const FormatOptions& options) {
    const common::Result<ModelFile> modelFile = ReadModelFile(options.model);
    if (!modelFile) {
        return Refused(modelFile.error);
    }
    const common::Result<std::string> source = ReadSource(options.source);
    if (!source) {
        return Refused(source.error);
    }
    ReportBadSymbolLines(*modelFile, modelFile->description.basicSymbolLines);
    const std::string rewritten =
        basic::RewriteText(*source, basic::EditorKeywords(modelFile->description));
    const std::optional<std::string> error =
        WriteOutput(options.inPlace ? options.source : "-", rewritten);
    return error ? Refused(*error) : CommandResult{};
}

}  // namespace corvane::cli
