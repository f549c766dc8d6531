#include "cli/loaded_program.h"

#include <filesystem>
#include <utility>

#include "cli/source_file.h"
#include "common/text_file.h"
#include "project/sourced_program.h"

namespace corvane::cli {

common::Result<ModelOptions> ModelOfHexFile(const std::string& file, const ModelOptions& model,
                                            bool withoutSource) {
    using ModelResult = common::Result<ModelOptions>;
    if (!model.name.empty() || withoutSource || KindOf(file) != FileKind::Hex) {
        return ModelResult::Success(model);
    }
    const std::string codFile = std::filesystem::path(file).replace_extension(".cod").string();
    const auto bytes = common::ReadTextFile(codFile);
    const auto text = common::ReadTextFile(file);
    if (!bytes || !text) {
        return ModelResult::Success(model);
    }
    const auto cod = project::ReadCodFile(*bytes);
    const auto image = loader::ReadIntelHex(*text, project::kCodWords);
    return cod && image && project::Belongs(*cod, *image)
               ? ModelOfProcessor(codFile, cod->processor, model)
               : ModelResult::Success(model);
}

common::Result<LoadedProgram, CommandResult> LoadProgram(const ProgramSource& source) {
    using LoadResult = common::Result<LoadedProgram, CommandResult>;
    if (IsForGpasm(source.assembler, source.file.name)) {
        auto build = BuildWithGpasm(source.file.name, source.model, source.assembler);
        return build ? LoadResult::Success({std::move(build->modelFile), std::move(build->image)})
                     : LoadResult::Failure(std::move(build.error.result));
    }
    const common::Result<ModelOptions> model =
        ModelOfHexFile(source.file.name, source.model, source.withoutSource);
    if (!model) {
        return LoadResult::Failure(Refused(model.error));
    }
    common::Result<ModelFile> modelFile = ReadModelFile(*model);
    if (!modelFile) {
        return LoadResult::Failure(Refused(modelFile.error));
    }
    common::Result<loader::Program> image =
        ReadProgram(source.file, *modelFile, source.clockFrequency);
    return image ? LoadResult::Success({*std::move(modelFile.value), *std::move(image.value)})
                 : LoadResult::Failure(Refused(image.error));
}

}  // namespace corvane::cli
