#include "cli/model_files.h"

#include <optional>
#include <system_error>

#include "cli/diagnostics.h"
#include "common/text.h"
#include "common/text_file.h"
#include "models/symbol_lines.h"

namespace corvane::cli {

namespace fs = std::filesystem;

namespace {

using ReadResult = common::Result<ModelFile>;

fs::path ExecutableFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

std::optional<fs::path> FindModelFile(const ModelOptions& options) {
    const std::string name = models::DescriptionFileName(options.model->name);
    std::vector<fs::path> folders = {options.folder};
    if (options.folder.empty()) {
        const fs::path executableFolder = ExecutableFolder();
        folders = {executableFolder,
                   (executableFolder / CORVANE_MODELS_FROM_EXECUTABLE).lexically_normal()};
    }
    std::error_code error;
    for (const fs::path& folder : folders) {
        if (fs::exists(folder / name, error)) {
            return folder / name;
        }
    }
    return std::nullopt;
}

}  // namespace

std::string ModelFilePath(const ModelOptions& options) {
    return FindModelFile(options).value_or("").string();
}

ReadResult ReadModelFile(const ModelOptions& options) {
    const std::string message = "File '" + models::DescriptionFileName(options.model->name) + "' ";
    const std::optional<fs::path> path = FindModelFile(options);
    if (!path) {
        return ReadResult::Failure(message + "could not be found.");
    }
    const common::Result<std::string> text = common::ReadTextFile(*path);
    if (!text) {
        return ReadResult::Failure(ErrorText(path->string(), text.error));
    }
    common::Result<models::ModelDescription, int> description = models::ReadModelDescription(*text);
    if (!description) {
        return ReadResult::Failure(message + "corrupted.\n" +
                                   ErrorText(path->string(), description.error,
                                             "Not a line ADDRESS,CELL,NAME,RESET,MASK."));
    }
    return ReadResult::Success({options.model, path->string(), std::move(*description)});
}

void ReportBadSymbolLines(const ModelFile& file,
                          const std::vector<models::SymbolLine>& symbolLines) {
    const std::string message = models::BadSymbolLineMessage(file.model->name);
    for (const int lineNumber : models::ReadSymbolLines(symbolLines).badLines) {
        ReportWarning(file.path, lineNumber, common::SplitLines(message).front());
    }
}

}  // namespace corvane::cli
