#include "project/model_files.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "common/text.h"
#include "common/text_file.h"
#include "models/symbol_lines.h"

namespace corvane::project {

namespace fs = std::filesystem;

namespace {

fs::path ExecutableFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

bool HoldsModels(const fs::path& folder) {
    std::error_code error;
    for (const models::Model& model : models::kModelCatalogue) {
        if (fs::exists(folder / models::DescriptionFileName(model.name), error)) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::string ModelFolder() {
    const fs::path executables = ExecutableFolder();
    const fs::path folder = HoldsModels(executables)
                                ? executables
                                : (executables / CORVANE_MODELS_FROM_EXECUTABLE).lexically_normal();
    return folder.string();
}

std::string ModelFilePath(const ModelChoice& choice) {
    const fs::path folder = choice.folder.empty() ? ModelFolder() : choice.folder;
    const fs::path path = folder / models::DescriptionFileName(choice.model->name);
    std::error_code error;
    return fs::exists(path, error) ? path.string() : "";
}

std::optional<ModelFile> ReadModelFile(const ModelChoice& choice, Messages& messages) {
    const std::string message = "File '" + models::DescriptionFileName(choice.model->name) + "' ";
    const std::string path = ModelFilePath(choice);
    if (path.empty()) {
        AddError(messages, "", 0, message + "could not be found.");
        return std::nullopt;
    }
    const common::Result<std::string> text = common::ReadTextFile(path);
    if (!text) {
        AddError(messages, path, 0, text.error);
        return std::nullopt;
    }
    common::Result<models::ModelDescription, int> description = models::ReadModelDescription(*text);
    if (!description) {
        AddError(messages, "", 0, message + "corrupted.");
        AddError(messages, path, description.error, "Not a line ADDRESS,CELL,NAME,RESET,MASK.");
        return std::nullopt;
    }
    return ModelFile{choice.model, path, *std::move(description.value)};
}

void AddBadSymbolLines(const ModelFile& file, const std::vector<models::SymbolLine>& symbolLines,
                       Messages& messages) {
    const std::string message = models::BadSymbolLineMessage(file.model->name);
    for (const int lineNumber : models::ReadSymbolLines(symbolLines).badLines) {
        AddWarning(messages, file.path, lineNumber,
                   std::string(common::SplitLines(message).front()));
    }
}

std::optional<ModelChoice> ModelOfProcessor(const std::string& file, const std::string& processor,
                                            const ModelChoice& choice, Messages& messages) {
    const std::optional<models::NamedModel> named = models::FindModelAsWritten(processor);
    if (!named) {
        AddError(messages, file, 0,
                 "There is no model for the processor '" + processor + "'; 'models' lists them.");
        return std::nullopt;
    }
    ModelChoice result = choice;
    result.model = &models::kModelCatalogue[static_cast<std::size_t>(named->row)];
    if (!named->warning.empty()) {
        AddWarning(messages, file, 0, named->warning);
    }
    return result;
}

}  // namespace corvane::project
