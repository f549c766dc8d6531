#include "cli/loaded_program.h"

#include <filesystem>
#include <utility>

#include "cli/source_file.h"
#include "cli/translation.h"
#include "common/text_file.h"
#include "project/sourced_program.h"

namespace corvane::cli {

namespace fs = std::filesystem;

namespace {

// Messages name the source as the person did, and other files as gpasm does.
project::Program FromGpasm(const std::string& file, GpasmBuild& build) {
    const std::string name = fs::path(file).filename().string();
    project::Program program{.image = std::move(build.image)};
    project::AddCodSource(program, build.files.cod,
                          [&](const std::string& named) { return named == name ? file : named; });
    return program;
}

bool AddCodBeside(project::Program& program, const fs::path& path) {
    const auto bytes = common::ReadTextFile(path);
    if (!bytes) {
        return false;
    }
    const auto cod = project::ReadCodFile(*bytes);
    if (!cod || !project::Belongs(*cod, program.image)) {
        return false;
    }
    project::AddCodSource(program, *cod, [&path](const std::string& file) {
        return (path.parent_path() / file).string();
    });
    return true;
}

bool AddSourceBeside(project::Program& program, const std::string& file, const ModelFile& modelFile,
                     float clockFrequency) {
    const std::optional<QuietBuild> build = BuildQuietly(file, modelFile, clockFrequency);
    if (!build || !project::HaveSameWords(project::FromImage(build->image).program,
                                          project::FromImage(program.image).program)) {
        return false;
    }
    if (build->compilation) {
        project::AddBasicSource(program, file, *build->compilation, build->assembly);
    } else {
        project::AddAssemblerSource(program, file, build->assembly);
    }
    return true;
}

void AddSourceOfHexFile(project::Program& program, const ProgramSource& source,
                        const ModelFile& modelFile) {
    fs::path path(source.file.name);
    if (AddCodBeside(program, path.replace_extension(".cod"))) {
        return;
    }
    for (const char* extension : {".bas", ".asm"}) {
        const std::string file = path.replace_extension(extension).string();
        if (AddSourceBeside(program, file, modelFile, source.clockFrequency)) {
            return;
        }
    }
}

}  // namespace

common::Result<ModelOptions> ModelOfHexFile(const std::string& file, const ModelOptions& model,
                                            bool withoutSource) {
    using ModelResult = common::Result<ModelOptions>;
    if (!model.name.empty() || withoutSource || KindOf(file) != FileKind::Hex) {
        return ModelResult::Success(model);
    }
    const std::string codFile = fs::path(file).replace_extension(".cod").string();
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
        if (!build) {
            return LoadResult::Failure(std::move(build.error.result));
        }
        project::Program program = FromGpasm(source.file.name, *build);
        return LoadResult::Success({std::move(build->modelFile), std::move(program)});
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
    common::Result<project::Program> program =
        ReadProgram(source.file, *modelFile, source.clockFrequency);
    if (!program) {
        return LoadResult::Failure(Refused(program.error));
    }
    if (KindOf(source.file.name) == FileKind::Hex && !source.withoutSource) {
        AddSourceOfHexFile(*program, source, *modelFile);
    }
    return LoadResult::Success({*std::move(modelFile.value), *std::move(program.value)});
}

}  // namespace corvane::cli
